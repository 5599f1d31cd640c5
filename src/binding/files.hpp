// Files as Python's own open() gives them.
#pragma once
#include "module.hpp"

namespace zv {

// Runs `body` with the open file and closes it, whether the body succeeds or not.
template <class F> void withFile(PyObject* name, const char* mode, F&& body) {
    static Name open{"open"}, close{"close"};
    Ref<> file = Ref<>::steal(PyObject_CallFunctionObjArgs(builtin(open).raw(), name, toPython(mode).raw(), nullptr));
    try {
        body(file.raw());
    } catch (...) {
        PyObject *type, *value, *traceback;
        PyErr_Fetch(&type, &value, &traceback);
        if (!guarded(false, [&] { callByName(file.raw(), close); return true; })) PyErr_Clear();
        PyErr_Restore(type, value, traceback);
        throw;
    }
    callByName(file.raw(), close);
}

}  // namespace zv
