// Fields of native objects as Python sees them: one by one, or filled by a constructor.
#pragma once
#include "binding/callable.hpp"

namespace zv {

template <class T> struct Member;  // type of a data member or of a getter's result
template <class C, class V> struct Member<V C::*> {
    using Class = C;
    using Value = V;
};
template <class C, class R> struct Member<R (C::*)()> {
    using Class = C;
    using Value = std::remove_cvref_t<R>;
};
template <class C, class R> struct Member<R (C::*)() const> {
    using Class = C;
    using Value = std::remove_cvref_t<R>;
};

// A reference parameter that refuses None.
template <class T> struct Present {
    Ref<T> ref;
    operator Ref<T>() && { return std::move(ref); }
};
template <class T> struct Convert<Present<T>> {
    static Present<T> from(PyObject* o) { return {Ref<T>::borrow(checkType<T>(o))}; }
    static std::string name() { return typeName<T>(); }
};

// present(&T::field) in place of &T::field: the constructor refuses None for it.
template <class C, class T> struct PresentField {
    Ref<T> C::* field;
};
template <class C, class T> constexpr PresentField<C, T> present(Ref<T> C::* field) { return {field}; }
template <class C, class T> struct Member<PresentField<C, T>> {
    using Class = C;
    using Value = Present<T>;
};
template <class C, class T> constexpr auto pointerTo(PresentField<C, T> f) { return f.field; }
template <class C, class V> constexpr auto pointerTo(V C::* field) { return field; }
template <class F> inline constexpr bool isField = std::is_member_object_pointer_v<F>;
template <class C, class T> inline constexpr bool isField<PresentField<C, T>> = true;
template <class F> inline constexpr bool isField<const F> = isField<F>;

// The body of a constructor that copies its arguments into fields, after the plain `init()` of a base, if there is one.
template <class T, auto... Fields> struct FieldCopy {
    void operator()(T& object, typename Member<std::remove_cv_t<decltype(Fields)>>::Value... values) const {
        if constexpr (requires { object.init(); }) object.init();
        ((object.*pointerTo(Fields) = std::move(values)), ...);
    }
};
template <class T, auto... Fields> struct Callable<FieldCopy<T, Fields...>>
    : Callable<void (*)(typename Member<std::remove_cv_t<decltype(Fields)>>::Value...)> {
    using Class = T;
};
template <class F> struct Callable<const F> : Callable<F> {};

}  // namespace zv
