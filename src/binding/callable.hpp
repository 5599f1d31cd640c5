// From a C++ function to a Python callable: argument binding, conversion of arguments and result.
#pragma once
#include "binding/convert.hpp"

#include <algorithm>
#include <array>
#include <functional>

namespace zv {

struct Signature {
    Name name{""};
    std::vector<Param> params;
};
template <auto F> inline Signature signatureOf;  // filled when the method is declared

template <class F> struct Callable;  // what a pointer tells about a function or method
template <class R, class... A> struct Callable<R (*)(A...)> {
    using Class = void;
    using Result = R;
    using Parameters = std::tuple<A...>;
    static constexpr bool hasArgs = (std::is_same_v<A, Args> || ...);
    static constexpr size_t named = sizeof...(A) - hasArgs;
};
template <class R, class C, class... A> struct Callable<R (C::*)(A...)> : Callable<R (*)(A...)> {
    using Class = C;
};
template <class R, class C, class... A> struct Callable<R (C::*)(A...) const> : Callable<R (C::*)(A...)> {};

// Sorts positional and keyword arguments into one slot per parameter; empty slots take the fallback. The slots
// own their arguments: before Python 3.9, f(**d) lends those of `d`, and converting one of them may empty `d`.
void bindArguments(const Signature&, Ref<>* slots, size_t count, bool hasArgs, PyObject* const* argv, Py_ssize_t given,
    PyObject* kwnames, PyObject* kwdict);

// What docs say of the parameters and the result, and the line that inspect.signature() reads.
struct Documented {
    std::vector<std::string> argTypes;
    std::string resultType;
    bool hasArgs;

    template <auto F> static Documented of() {
        using S = Callable<decltype(F)>;
        Documented d;
        d.hasArgs = S::hasArgs;
        [&]<size_t... I>(std::index_sequence<I...>) {
            (d.argTypes.push_back(Convert<std::tuple_element_t<I, typename S::Parameters>>::name()), ...);
        }(std::make_index_sequence<S::named>{});
        using Result = std::remove_cvref_t<typename S::Result>;
        if constexpr (!std::is_void_v<Result>) d.resultType = Convert<Result>::name();
        return d;
    }
    std::string signature(const char* name, const char* self, const std::vector<Param>&) const;
    std::string text(const std::vector<Param>&, const char* doc) const;
};

template <auto F> PyObject* invoke(
    PyObject* self, PyObject* const* argv, Py_ssize_t given, PyObject* kwnames, PyObject* kwdict = nullptr) {
    using S = Callable<decltype(F)>;
    std::array<Ref<>, S::named + 1> slots;
    bool bound = kwnames || kwdict || given != static_cast<Py_ssize_t>(S::named);
    if (bound) bindArguments(signatureOf<F>, slots.data(), S::named, S::hasArgs, argv, given, kwnames, kwdict);
    return [&]<size_t... I>(std::index_sequence<I...>) -> PyObject* {
        const auto& params = signatureOf<F>.params;
        [[maybe_unused]] auto one =
            [&]<size_t i>(std::integral_constant<size_t, i>) -> std::tuple_element_t<i, typename S::Parameters> {
            using T = std::tuple_element_t<i, typename S::Parameters>;
            if constexpr (std::is_same_v<T, Args>) {
                Py_ssize_t taken = std::min<Py_ssize_t>(given, S::named);
                return Args{argv + taken, given - taken};
            } else return fromArgument<T>(bound ? slots[i].raw() : argv[i], params[i]);
        };
        // Braces convert from left to right, so the first bad argument is the one reported.
        [[maybe_unused]] typename S::Parameters values{one(std::integral_constant<size_t, I>{})...};
        auto run = [&]() -> decltype(auto) {
            if constexpr (std::is_void_v<typename S::Class>)
                return F(std::forward<std::tuple_element_t<I, typename S::Parameters>>(std::get<I>(values))...);
            else
                return std::invoke(F, *native<typename S::Class>(self),
                    std::forward<std::tuple_element_t<I, typename S::Parameters>>(std::get<I>(values))...);
        };
        if constexpr (std::is_void_v<typename S::Result>) {
            run();
            Py_RETURN_NONE;
        } else {
            return Convert<std::remove_cvref_t<typename S::Result>>::to(run());
        }
    }(std::make_index_sequence<std::tuple_size_v<typename S::Parameters>>{});
}

template <auto F>
PyObject* methodEntry(PyObject* self, PyObject* const* argv, Py_ssize_t given, PyObject* kwnames) noexcept {
    return guarded<PyObject*>(nullptr, [&] { return invoke<F>(self, argv, given, kwnames); });
}
template <auto F> PyObject* plainEntry(PyObject* self, PyObject*) noexcept {
    return guarded<PyObject*>(nullptr, [&] { return invoke<F>(self, nullptr, 0, nullptr); });
}
template <auto F> PyMethodDef methodDef(const char* name, const char* doc) {
    using S = Callable<decltype(F)>;
    if constexpr (S::named == 0 && !S::hasArgs) return {name, plainEntry<F>, METH_NOARGS, doc};
    else
        return {name, reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(methodEntry<F>)),
            METH_FASTCALL | METH_KEYWORDS, doc};
}

// Declares what a Python name, its parameters and defaults are; the class and module builders use it.
template <auto F> void declareSignature(const char* name, std::vector<Param> params) {
    if (params.size() != Callable<decltype(F)>::named)
        raise(PyExc_SystemError, "%s(): parameter names do not match", name);
    signatureOf<F> = {{name}, std::move(params)};
}

// Ends an endless recursion of native code, whose calls Python does not count by itself.
struct RecursionGuard {
    explicit RecursionGuard(const char* where = " while calling a Python object") {
        if (Py_EnterRecursiveCall(where)) throw PythonError{};
    }
    ~RecursionGuard() { Py_LeaveRecursiveCall(); }
    RecursionGuard(const RecursionGuard&) = delete;
    RecursionGuard& operator=(const RecursionGuard&) = delete;
};

// function(args...)
template <class... A> Ref<> callFunction(PyObject* function, const A&... args) {
    RecursionGuard guard;
    std::array<Ref<>, sizeof...(A) + 1> values{toPython(args)...};
    return [&]<size_t... I>(std::index_sequence<I...>) {
        return Ref<>::steal(PyObject_CallFunctionObjArgs(function, values[I].raw()..., nullptr));
    }(std::make_index_sequence<sizeof...(A)>{});
}

// Calls a method through attribute lookup, so that an override in a script takes effect.
template <class... A> Ref<> callByName(PyObject* self, Name& name, const A&... args) {
    RecursionGuard guard;
    Ref<> held = Ref<>::borrow(self ? self : Py_None);  // the call may empty the field that `self` came from
    std::array<Ref<>, sizeof...(A) + 1> values{toPython(args)...};
    return [&]<size_t... I>(std::index_sequence<I...>) {
        return Ref<>::steal(PyObject_CallMethodObjArgs(held.raw(), name.get(), values[I].raw()..., nullptr));
    }(std::make_index_sequence<sizeof...(A)>{});
}

// Calls a declared method the way a script would, so that overrides take effect; an object of
// exactly the method's class has none and is called directly.
template <auto F, class Self, class... A> auto call(Self& self, A&&... args) {
    using S = Callable<decltype(F)>;
    static_assert(!std::is_pointer_v<typename S::Result> && !std::is_same_v<typename S::Result, std::string_view>,
        "the result of an override would not outlive the call");
    if (Py_TYPE(self.self()) == &typeOf<typename S::Class>) return (self.*F)(std::forward<A>(args)...);
    Ref<> result = callByName(self.self(), signatureOf<F>.name, args...);
    if constexpr (!std::is_void_v<typename S::Result>) return Convert<typename S::Result>::from(result.raw());
}

inline Ref<> getAttribute(PyObject* o, Name& name) {
    return Ref<>::steal(PyObject_GetAttr(o ? o : Py_None, name.get()));
}
inline bool hasAttribute(PyObject* o, Name& name) {
    PyObject* value = PyObject_GetAttr(o, name.get());
    if (!value && !PyErr_ExceptionMatches(PyExc_AttributeError)) throw PythonError{};
    PyErr_Clear();
    Py_XDECREF(value);
    return value != nullptr;
}
inline void setAttribute(PyObject* o, Name& name, PyObject* value) {
    checked(PyObject_SetAttr(o ? o : Py_None, name.get(), value ? value : Py_None));
}

// Whether objects of the class get an attribute from that native base. If so, looking it up runs no script.
bool inherits(PyTypeObject* type, const PyTypeObject* base, Name& name);

// Whether something else may run than the native function when the method is called by its name: a script has put it
// into a class of its own, or into the object alone. To tell runs no script.
bool isOverridden(PyObject* self, const PyTypeObject* base, Name& name, PyCFunction function);
template <auto F> bool isOverridden(PyObject* self) {
    const PyTypeObject* base = &typeOf<typename Callable<decltype(F)>::Class>;
    if (Py_TYPE(self) == base) return false;
    return isOverridden(self, base, signatureOf<F>.name, methodDef<F>(nullptr, nullptr).ml_meth);
}

}  // namespace zv
