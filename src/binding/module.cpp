#include "binding/module.hpp"

namespace zv {

Module& Module::source(const char* code) {
    PyObject* names = PyModule_GetDict(object);
    Ref<> builtins = Ref<>::steal(PyImport_ImportModule("builtins"));
    checked(PyDict_SetItemString(names, "__builtins__", builtins.raw()));  // Python adds them only from 3.10 on
    PyObject* result = PyRun_String(code, Py_file_input, names, names);
    if (!result && !PyErr_Occurred()) PyErr_NoMemory();  // the parser does not always say so
    Ref<>::steal(result);
    return *this;
}

Ref<> builtin(Name& name) {
    Ref<> builtins = Ref<>::steal(PyImport_ImportModule("builtins"));
    return getAttribute(builtins.raw(), name);
}

Walk::Walk(PyObject* iterable)
    : isList(iterable && PyList_CheckExact(iterable)),
      walked(isList ? Ref<>::borrow(iterable) : Ref<>::steal(PyObject_GetIter(iterable ? iterable : Py_None))) {}

Ref<> Walk::next() {
    if (isList) {
        bool isOver = index >= PyList_GET_SIZE(walked.raw());
        return isOver ? Ref<>() : Ref<>::borrow(PyList_GET_ITEM(walked.raw(), index++));
    }
    PyObject* item = PyIter_Next(walked.raw());
    if (!item && PyErr_Occurred()) throw PythonError{};
    return item ? Ref<>::steal(item) : Ref<>();
}

void print(const Ref<>& text) { callFunction(builtin("print"_name).raw(), text); }

}  // namespace zv
