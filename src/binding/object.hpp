// Native objects and the references between them.
//
// A native object lives in the memory of its Python object, right behind the
// PyObject header. The header stays plain C, so the native part may have virtual
// functions. Base and derived share one address: single inheritance only.
#pragma once
#include "binding/python.hpp"

#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace zv {

// Thrown when Python's error indicator is set. Every entry point from Python catches it.
struct PythonError {};

template <class... A> [[noreturn]] void raise(PyObject* type, const char* format, A... args) {
    PyErr_Format(type, format, args...);
    throw PythonError{};
}

// Passes on the error that a call of Python's C interface reported.
inline int checked(int result) {
    if (result < 0) throw PythonError{};
    return result;
}

struct RefVisitor;

struct Object {
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
    // Names every Ref member once; serves both halves of cycle collection.
    virtual void eachRef(RefVisitor&) {}
    PyObject* self() const { return reinterpret_cast<PyObject*>(const_cast<Object*>(this)) - 1; }
};

template <class T> T* native(PyObject* o) { return static_cast<T*>(reinterpret_cast<Object*>(o + 1)); }

template <class T> inline PyTypeObject typeOf = {PyVarObject_HEAD_INIT(nullptr, 0)};

// Whether the object is of one of our own classes, no script's subclass: nothing of it can be overridden or exchanged.
inline bool isNative(const Object& o) { return !PyType_HasFeature(Py_TYPE(o.self()), Py_TPFLAGS_HEAPTYPE); }

template <class T> PyObject* classOf() { return reinterpret_cast<PyObject*>(&typeOf<T>); }

// Python's own types, for references that hold only these.
struct List {};
struct Dict {};
struct Tuple {};
struct Str {};
template <class T> inline PyTypeObject* builtinType = nullptr;
template <> inline PyTypeObject* builtinType<List> = &PyList_Type;
template <> inline PyTypeObject* builtinType<Dict> = &PyDict_Type;
template <> inline PyTypeObject* builtinType<Tuple> = &PyTuple_Type;
template <> inline PyTypeObject* builtinType<Str> = &PyUnicode_Type;
template <class T> inline constexpr bool isBuiltin =
    std::is_same_v<T, List> || std::is_same_v<T, Dict> || std::is_same_v<T, Tuple> || std::is_same_v<T, Str>;

template <class T> PyTypeObject* pythonType() {
    if constexpr (isBuiltin<T>) return builtinType<T>;
    else return &typeOf<T>;
}

// An owned reference. Empty means None: that is what scripts see of an empty field.
template <class T = PyObject> class Ref {
public:
    Ref() = default;
    Ref(const Ref& o) : object(o.object) { Py_XINCREF(object); }
    Ref(Ref&& o) noexcept : object(std::exchange(o.object, nullptr)) {}
    ~Ref() { Py_XDECREF(object); }
    // The slot holds the new value before the old one is released.
    Ref& operator=(Ref o) noexcept {
        std::swap(object, o.object);
        return *this;
    }

    static Ref borrow(PyObject* o) {
        Py_XINCREF(o);
        return Ref(o);
    }
    static Ref steal(PyObject* o) {
        if (!o) throw PythonError{};
        return Ref(o);
    }
    static Ref to(const T& o) { return borrow(o.self()); }

    PyObject* raw() const { return object; }
    PyObject* orNone() const { return object ? object : Py_None; }
    PyObject* release() { return std::exchange(object, nullptr); }
    T* get() const {
        static_assert(!std::is_same_v<T, PyObject> && !isBuiltin<T>);
        return object ? native<T>(object) : nullptr;
    }
    // A script may have left the field empty; using it then is the script's error, not a crash.
    T& operator*() const {
        if (!object) raise(PyExc_AttributeError, "a %s is needed here, not None", pythonType<T>()->tp_name);
        return *get();
    }
    T* operator->() const { return &**this; }
    explicit operator bool() const { return object != nullptr; }

private:
    explicit Ref(PyObject* o) : object(o) {}
    PyObject* object = nullptr;
};

struct RefVisitor {
    visitproc visit;  // null: empty the references instead of visiting them
    void* arg;
    int result = 0;

    template <class T> void operator()(Ref<T>& ref) {
        if (!visit) Ref<T>(std::move(ref));
        else if (ref && !result) result = visit(ref.raw(), arg);
    }
    template <class T> void operator()(std::vector<Ref<T>>& refs) {
        if (!visit) std::vector<Ref<T>>(std::move(refs));
        else
            for (auto& ref : refs) (*this)(ref);
    }
};

// Runs code at a C boundary: what it throws becomes Python's error indicator.
template <class R, class F> R guarded(R onError, F&& body) noexcept {
    try {
        return body();
    } catch (const PythonError&) {
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const std::length_error&) {  // a container asked for more than there can be
        PyErr_NoMemory();
    } catch (const std::exception& e) { PyErr_SetString(PyExc_RuntimeError, e.what()); }
    return onError;
}

// A name that is looked up or reported often; interned at first use.
struct Name {
    const char* text;
    PyObject* object = nullptr;
    PyObject* get() {
        if (!object) object = Ref<>::steal(PyUnicode_InternFromString(text)).release();
        return object;
    }
};

template <size_t N> struct Letters {
    char text[N];
    constexpr Letters(const char (&t)[N]) {
        for (size_t i = 0; i < N; i++) text[i] = t[i];
    }
};
// "update"_name: one Name per text, wherever it is written.
template <Letters L> Name& operator""_name() {
    static Name name{L.text};
    return name;
}

// For operations that cannot pass an error on: it goes to the unraisable hook.
// The result tells whether the body ran to its end.
template <class F> bool unraisable(Name& where, F&& body) noexcept {
    if (guarded(false, [&] {
            body();
            return true;
        }))
        return true;
    PyObject *type, *value, *traceback;
    PyErr_Fetch(&type, &value, &traceback);
    PyObject* name = guarded<PyObject*>(nullptr, [&] { return where.get(); });
    PyErr_Restore(type, value, traceback);
    reportUnraisable(name);
    return false;
}

}  // namespace zv
