// Conversion of arguments and results. One specialisation per type; `name` is what docs call it.
#pragma once
#include "binding/object.hpp"

#include <climits>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>

namespace zv {

struct Required {};
struct None {};
struct Omitted {  // left out: the parameter is an empty optional; docs show `text`
    const char* text;
};

// A parameter: its name, what stands in when the caller leaves it out, and what docs call its type
// where the C++ type does not tell.
struct Param {
    const char* name;
    std::variant<Required, None, bool, int, double, const char*, Omitted> fallback = Required{};
    const char* type = nullptr;
};

// A last parameter of this type takes all remaining positional arguments (*args).
struct Args {
    PyObject* const* items;
    Py_ssize_t size;
};

// int() for numbers: floats truncate by their own __int__, text does not convert.
Ref<> integerOf(PyObject* o);
long long toInteger(PyObject* o, long long low, long long high, const char* what);

// Exactly `count` items of any iterable, as `a, b = iterable` takes them.
std::vector<Ref<>> unpack(PyObject* iterable, size_t count);

template <class T> PyObject* checkType(PyObject* o) {
    PyTypeObject* type = pythonType<T>();
    if (!PyObject_TypeCheck(o, type))
        raise(PyExc_TypeError, "expected %.200s, got %.200s", type->tp_name, Py_TYPE(o)->tp_name);
    return o;
}
template <class T> std::string typeName() {
    const char* name = pythonType<T>()->tp_name;
    if (!name) raise(PyExc_SystemError, "a signature mentions a class that has no name yet");
    const char* dot = std::strrchr(name, '.');
    return dot ? dot + 1 : name;
}

template <class T> struct Convert;
template <> struct Convert<int> {
    static int from(PyObject* o) { return static_cast<int>(toInteger(o, INT_MIN, INT_MAX, "int")); }
    static PyObject* to(int v) { return PyLong_FromLong(v); }
    static std::string name() { return "int"; }
};
template <> struct Convert<uint8_t> {  // parameter only
    static uint8_t from(PyObject* o) { return static_cast<uint8_t>(toInteger(o, 0, UINT8_MAX, "uint8_t")); }
};
template <> struct Convert<uint32_t> {
    static uint32_t from(PyObject* o) { return static_cast<uint32_t>(toInteger(o, 0, UINT32_MAX, "uint32_t")); }
    static PyObject* to(uint32_t v) { return PyLong_FromUnsignedLong(v); }
    static std::string name() { return "int"; }
};
template <> struct Convert<int64_t> {
    static int64_t from(PyObject* o) { return toInteger(o, INT64_MIN, INT64_MAX, "int64_t"); }
    static PyObject* to(int64_t v) { return PyLong_FromLongLong(v); }
    static std::string name() { return "int"; }
};
template <> struct Convert<bool> {
    static bool from(PyObject* o) { return checked(PyObject_IsTrue(o)) != 0; }
    static PyObject* to(bool v) { return PyBool_FromLong(v); }
    static std::string name() { return "bool"; }
};
template <> struct Convert<double> {
    static double from(PyObject* o) {
        double value = PyFloat_AsDouble(o);
        if (value == -1.0 && PyErr_Occurred()) throw PythonError{};
        return value;
    }
    static PyObject* to(double v) { return PyFloat_FromDouble(v); }
    static std::string name() { return "float"; }
};
template <> struct Convert<std::string_view> {  // UTF-8; valid as long as the argument lives
    static std::string_view from(PyObject* o) {
        if (!PyUnicode_Check(o)) raise(PyExc_TypeError, "expected str, got %.200s", Py_TYPE(o)->tp_name);
        Py_ssize_t size;
        const char* text = PyUnicode_AsUTF8AndSize(o, &size);
        if (!text) throw PythonError{};
        return {text, static_cast<size_t>(size)};
    }
    static PyObject* to(std::string_view v) {
        return PyUnicode_DecodeUTF8(v.data(), static_cast<Py_ssize_t>(v.size()), nullptr);
    }
    static std::string name() { return "str"; }
};
template <> struct Convert<const char*> {  // text for C libraries: UTF-8, no null character inside
    static const char* from(PyObject* o) {
        std::string_view text = Convert<std::string_view>::from(o);
        if (text.find('\0') != text.npos) raise(PyExc_ValueError, "embedded null character");
        return text.data();
    }
    static PyObject* to(const char* v) { return Convert<std::string_view>::to(v); }
    static std::string name() { return "str"; }
};
template <> struct Convert<std::string> {  // result only
    static PyObject* to(const std::string& v) { return Convert<std::string_view>::to(v); }
    static std::string name() { return "str"; }
};
template <> struct Convert<PyObject*> {  // any object, borrowed
    static PyObject* from(PyObject* o) { return o; }
    static PyObject* to(PyObject* v) {
        v = v ? v : Py_None;
        Py_INCREF(v);
        return v;
    }
    static std::string name() { return "object"; }
};
template <class T> struct Convert<T*> {  // a native object, borrowed; null is None
    static T* from(PyObject* o) { return o == Py_None ? nullptr : native<T>(checkType<T>(o)); }
    static PyObject* to(T* v) { return Convert<PyObject*>::to(v ? v->self() : nullptr); }
    static std::string name() { return typeName<T>() + " or None"; }
};
template <class T> struct Convert<T&> {  // a native object that has to be there
    using Class = std::remove_const_t<T>;
    static T& from(PyObject* o) { return *native<Class>(checkType<Class>(o)); }
    static std::string name() { return typeName<Class>(); }
};
template <class T> struct Convert<Ref<T>> {
    static Ref<T> from(PyObject* o) {
        if (o == Py_None) return {};
        if constexpr (!std::is_same_v<T, PyObject>) checkType<T>(o);
        return Ref<T>::borrow(o);
    }
    static PyObject* to(const Ref<T>& v) { return Convert<PyObject*>::to(v.raw()); }
    static std::string name() {
        if constexpr (std::is_same_v<T, PyObject>) return "object";
        else return typeName<T>() + " or None";
    }
};
template <class T> struct Convert<std::optional<T>> {  // a parameter that knows whether it was given
    static std::optional<T> from(PyObject* o) { return Convert<T>::from(o); }
    static std::string name() { return Convert<T>::name(); }
};
template <class... T> struct Convert<std::tuple<T...>> {
    static std::tuple<T...> from(PyObject* o) {
        std::vector<Ref<>> items = unpack(o, sizeof...(T));
        return [&]<size_t... I>(std::index_sequence<I...>) {
            return std::tuple<T...>{Convert<T>::from(items[I].raw())...};
        }(std::index_sequence_for<T...>{});
    }
    static PyObject* to(const std::tuple<T...>& v) {
        Ref<> result = Ref<>::steal(PyTuple_New(sizeof...(T)));
        Py_ssize_t i = 0;
        std::apply(
            [&](const T&... items) {
                (PyTuple_SET_ITEM(result.raw(), i++, Ref<>::steal(Convert<T>::to(items)).release()), ...);
            },
            v);
        return result.release();
    }
    static std::string name() {
        std::string names;
        ((names += (names.empty() ? "" : ", ") + Convert<T>::name()), ...);
        return "(" + names + ")";
    }
};

template <class T> T fromArgument(PyObject* given, const Param& param) {
    if constexpr (std::is_reference_v<T>) return Convert<T>::from(given);
    else {
        if (given) return Convert<T>::from(given);
        return std::visit(
            [](auto v) -> T {
                if constexpr (std::is_arithmetic_v<T> && std::is_arithmetic_v<decltype(v)>) return static_cast<T>(v);
                else if constexpr (std::is_same_v<T, Ref<>> && std::is_arithmetic_v<decltype(v)>)
                    return Ref<>::steal(Convert<decltype(v)>::to(v));
                else if constexpr (std::is_same_v<decltype(v), const char*> && std::is_convertible_v<const char*, T>)
                    return v;
                else return T{};
            },
            param.fallback);
    }
}

// A value as a new Python object that its owner holds.
template <class T> Ref<> toPython(const T& value) {
    if constexpr (std::is_base_of_v<Object, T>) return Ref<>::borrow(value.self());
    else return Ref<>::steal(Convert<T>::to(value));
}
inline Ref<> toPython(const char* text) { return Ref<>::steal(Convert<const char*>::to(text)); }

// The remaining arguments as a tuple.
inline Ref<Tuple> tupleOf(Args arguments) {
    Ref<Tuple> tuple = Ref<Tuple>::steal(PyTuple_New(arguments.size));
    for (Py_ssize_t i = 0; i < arguments.size; i++)
        PyTuple_SET_ITEM(tuple.raw(), i, Ref<>::borrow(arguments.items[i]).release());
    return tuple;
}

}  // namespace zv
