// Files as Python's own open() gives them.
#pragma once
#include "binding/module.hpp"

namespace zv {

// Runs `body` with the open file and closes it, whether the body succeeds or not. A number, which open() takes
// for a descriptor, is no name: closing one that a library works with would end the process.
template <class F> void withFile(PyObject* name, const char* mode, F&& body) {
    if (PyNumber_Check(name)) raise(PyExc_TypeError, "expected the name of a file, got %.200s", Py_TYPE(name)->tp_name);
    Ref<> file = callFunction(builtin("open"_name).raw(), name, mode);
    try {
        body(file.raw());
    } catch (...) {
        PyObject *type, *value, *traceback;
        PyErr_Fetch(&type, &value, &traceback);
        if (!guarded(false, [&] {
                callByName(file.raw(), "close"_name);
                return true;
            }))
            PyErr_Clear();
        PyErr_Restore(type, value, traceback);
        throw;
    }
    callByName(file.raw(), "close"_name);
}

}  // namespace zv
