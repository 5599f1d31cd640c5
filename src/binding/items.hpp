// Access to dictionaries of plain values, as JSON gives them.
#pragma once
#include "binding/module.hpp"

namespace zv {

// d[key], with Python's KeyError
inline Ref<> item(PyObject* d, const char* key) {
    return Ref<>::steal(PyObject_GetItem(d ? d : Py_None, toPython(std::string_view(key)).raw()));
}

// d[key][further key]...
template <class... Keys> Ref<> item(PyObject* d, Name& key, Keys&... further) {
    Ref<> value = Ref<>::steal(PyObject_GetItem(d ? d : Py_None, key.get()));
    if constexpr (sizeof...(further) == 0) return value;
    else return item(value.raw(), further...);
}

// key in d
inline bool hasItem(PyObject* d, const char* key) { return contains(d, toPython(std::string_view(key)).raw()); }

// d[key] if it is there, else the fallback
template <class T> T itemOr(PyObject* d, const char* key, T fallback) {
    return hasItem(d, key) ? Convert<T>::from(item(d, key).raw()) : fallback;
}

// d[key] = value
template <class T> void setItem(PyObject* d, const char* key, const T& value) {
    checked(PyObject_SetItem(d ? d : Py_None, toPython(std::string_view(key)).raw(), toPython(value).raw()));
}

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
