#include "module.hpp"

namespace zv {

Module& Module::source(const char* code) {
    PyObject* names = PyModule_GetDict(object);
    Ref<>::steal(PyRun_String(code, Py_file_input, names, names));
    return *this;
}

Ref<> builtin(Name& name) {
    Ref<> builtins = Ref<>::steal(PyImport_ImportModule("builtins"));
    return getAttribute(builtins.raw(), name);
}

void print(const Ref<>& text) {
    static Name name{"print"};
    Ref<>::steal(PyObject_CallFunctionObjArgs(builtin(name).raw(), text.raw(), nullptr));
}

std::vector<Ref<>> unpack(PyObject* iterable, size_t count) {
    std::vector<Ref<>> items;
    Ref<> iterator = Ref<>::steal(PyObject_GetIter(iterable));
    while (PyObject* next = PyIter_Next(iterator.raw())) {
        items.push_back(Ref<>::steal(next));
        if (items.size() > count) raise(PyExc_ValueError, "too many values to unpack (expected %zu)", count);
    }
    if (PyErr_Occurred()) throw PythonError{};
    if (items.size() < count) raise(PyExc_ValueError, "not enough values to unpack (expected %zu, got %zu)", count, items.size());
    return items;
}

}  // namespace zv
