#include "binding/convert.hpp"

namespace zv {

Ref<> integerOf(PyObject* o) {
    if (PyLong_Check(o)) return Ref<>::borrow(o);
    PyNumberMethods* methods = Py_TYPE(o)->tp_as_number;
    unaryfunc convert = methods ? (methods->nb_int ? methods->nb_int : methods->nb_index) : nullptr;
    if (!convert) raise(PyExc_TypeError, "an integer is required, not %.200s", Py_TYPE(o)->tp_name);
    Ref<> number = Ref<>::steal(convert(o));
    if (!PyLong_Check(number.raw()))
        raise(PyExc_TypeError, "__int__ returned non-int (type %.200s)", Py_TYPE(number.raw())->tp_name);
    return number;
}

long long toInteger(PyObject* o, long long low, long long high, const char* what) {
    Ref<> number = integerOf(o);
    int overflow;
    long long value = PyLong_AsLongLongAndOverflow(number.raw(), &overflow);
    bool tooSmall = overflow ? overflow < 0 : value < low;
    if (tooSmall && low == 0) raise(PyExc_OverflowError, "can't convert negative value to %s", what);
    if (tooSmall) raise(PyExc_OverflowError, "value too small to convert to %s", what);
    if (overflow || value > high) raise(PyExc_OverflowError, "value too large to convert to %s", what);
    return value;
}

std::vector<Ref<>> unpack(PyObject* iterable, size_t count) {
    std::vector<Ref<>> items;
    Ref<> iterator = Ref<>::steal(PyObject_GetIter(iterable));
    while (PyObject* next = PyIter_Next(iterator.raw())) {
        items.push_back(Ref<>::steal(next));
        if (items.size() > count) raise(PyExc_ValueError, "too many values to unpack (expected %zu)", count);
    }
    if (PyErr_Occurred()) throw PythonError{};
    if (items.size() < count)
        raise(PyExc_ValueError, "not enough values to unpack (expected %zu, got %zu)", count, items.size());
    return items;
}

}  // namespace zv
