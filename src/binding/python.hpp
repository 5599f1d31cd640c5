// The one place that includes Python's headers and knows differences between its versions.
#pragma once
#define PY_SSIZE_T_CLEAN
#include <Python.h>

// Begins the definition of the function that makes the module, the only one which the library exports: before Python
// 3.9, PyMODINIT_FUNC leaves it hidden like all others, except on Windows.
#if PY_VERSION_HEX >= 0x03090000 || defined(_WIN32)
#define ZELVARINE_MODULE_INIT PyMODINIT_FUNC
#else
#define ZELVARINE_MODULE_INIT extern "C" __attribute__((visibility("default"))) PyObject*
#endif

namespace zv {

// Releases an object through `release`, deferred when it is the end of a long chain of owners:
// a script may nest objects deeper than the C stack is.
template <class F> void releaseInTurn([[maybe_unused]] PyObject* self, [[maybe_unused]] destructor entry, F&& release) {
#if PY_VERSION_HEX >= 0x03080000
    Py_TRASHCAN_BEGIN(self, entry);
    release();
    Py_TRASHCAN_END
#else
    Py_TRASHCAN_SAFE_BEGIN(self);
    release();
    Py_TRASHCAN_SAFE_END(self)
#endif
}

// Reports the error that is set and cannot be passed on. Python 3.7 reports it without the line of the script that
// called native code, and without building the exception first.
inline void reportUnraisable(PyObject* where) {
#if PY_VERSION_HEX < 0x03080000
    PyObject *type, *value, *traceback;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    bool isTraced = traceback != nullptr;
    PyErr_Restore(type, value, traceback);
    if (!isTraced && PyThreadState_Get()->frame) PyTraceBack_Here(PyThreadState_Get()->frame);
#endif
    PyErr_WriteUnraisable(where);
}

}  // namespace zv
