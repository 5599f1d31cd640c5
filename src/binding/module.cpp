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

void print(const Ref<>& text) { callFunction(builtin("print"_name).raw(), text); }

}  // namespace zv
