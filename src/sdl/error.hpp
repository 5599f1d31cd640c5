// Failures of SDL and its companion libraries as EngineSdlException.
#pragma once
#include "binding/module.hpp"

namespace zv {

[[noreturn]] inline void raiseSdl(const char* message) {
    static Name className{"EngineSdlException"};
    Ref<> error = Ref<>::steal(PyObject_CallFunction(Module::global(className).raw(), "s", message));
    PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(error.raw())), error.raw());
    throw PythonError{};
}

}  // namespace zv
