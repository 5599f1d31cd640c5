// Comparison, and access to the items of containers; nullptr is None everywhere.
#pragma once
#include "binding/module.hpp"

namespace zv {

inline PyObject* orNone(PyObject* o) { return o ? o : Py_None; }

// a < b, a <= b and so on; `operation` is Py_LT, Py_LE ...
inline bool compare(PyObject* a, int operation, PyObject* b) {
    return Convert<bool>::from(Ref<>::steal(PyObject_RichCompare(orNone(a), orNone(b), operation)).raw());
}
// a == b; unlike in a search, an object need not equal itself
inline bool equal(PyObject* a, PyObject* b) { return compare(a, Py_EQ, b); }

// d[key] where no script has a say in it: nothing if `d` is not Python's own dict, or lacks the key.
template <class T> Ref<> plainItem(const Ref<T>& d, Name& key) {
    if (!d || !PyDict_CheckExact(d.raw())) return {};
    PyObject* value = PyDict_GetItemWithError(d.raw(), key.get());
    if (!value && PyErr_Occurred()) throw PythonError{};
    return Ref<>::borrow(value);
}

// d[key], with Python's KeyError
inline Ref<> item(PyObject* d, PyObject* key) { return Ref<>::steal(PyObject_GetItem(orNone(d), orNone(key))); }
inline Ref<> item(PyObject* d, const char* key) { return item(d, toPython(key).raw()); }

// d[key][further key]...
template <class... Keys> Ref<> item(PyObject* d, Name& key, Keys&... further) {
    Ref<> value = item(d, key.get());
    if constexpr (sizeof...(further) == 0) return value;
    else return item(value.raw(), further...);
}

// sequence[index], with Python's IndexError
inline Ref<> itemAt(PyObject* sequence, Py_ssize_t index) {
    return Ref<>::steal(PySequence_GetItem(orNone(sequence), index));
}

// key in d
inline bool hasItem(PyObject* d, const char* key) { return contains(d, toPython(key).raw()); }

// d[key] if it is there, else the fallback
template <class T> T itemOr(PyObject* d, const char* key, T fallback) {
    return hasItem(d, key) ? Convert<T>::from(item(d, key).raw()) : fallback;
}

// Visits the items of a small dict that is keyed by classes: quicker than to look up several, and no script runs. False
// if a key is something else, which may claim to equal a class by a `__eq__` of its own.
template <class F> bool visitClasses(PyObject* d, F&& visit) {
    Py_ssize_t position = 0, left = PyDict_GET_SIZE(d);  // saves the call that finds no more
    for (PyObject *key, *value; left > 0 && PyDict_Next(d, &position, &key, &value); left--) {
        if (!PyType_CheckExact(key)) return false;
        visit(key, value);
    }
    return true;
}

// d[key] = value
template <class T> void setItem(PyObject* d, PyObject* key, const T& value) {
    checked(PyObject_SetItem(orNone(d), orNone(key), toPython(value).raw()));
}
template <class T> void setItem(PyObject* d, const char* key, const T& value) {
    setItem(d, toPython(key).raw(), value);
}

// del d[key]
inline void deleteItem(PyObject* d, PyObject* key) { checked(PyObject_DelItem(orNone(d), orNone(key))); }

// Adds to a list that no script has seen yet, or that is a list for sure.
template <class T> void append(PyObject* list, const T& value) { checked(PyList_Append(list, toPython(value).raw())); }

// A new dict, filled in the order of the calls.
class DictBuilder {
public:
    template <class T> DictBuilder& set(const char* key, const T& value) {
        checked(PyDict_SetItemString(dict.raw(), key, toPython(value).raw()));
        return *this;
    }
    Ref<> done() { return dict; }

private:
    Ref<> dict = Ref<>::steal(PyDict_New());
};

}  // namespace zv
