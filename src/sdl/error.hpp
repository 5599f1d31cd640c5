// Failures of the engine as its own exceptions.
#pragma once
#include "binding/module.hpp"

namespace zv {

// Raises the exception class of that module-level name.
[[noreturn]] inline void raiseNamed(Name& className, const char* message) {
    Ref<> error = Ref<>::steal(PyObject_CallFunction(Module::global(className).raw(), "s", message));
    PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(error.raw())), error.raw());
    throw PythonError{};
}

[[noreturn]] inline void raiseEngine(const char* message) { raiseNamed("EngineException"_name, message); }

// Keeps what SDL says of its failure in the exception.
[[noreturn]] inline void raiseSdl(const char* message) { raiseNamed("EngineSdlException"_name, message); }

}  // namespace zv
