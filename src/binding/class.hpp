// Declares native classes to Python: methods, properties, documentation.
#pragma once
#include "binding/fields.hpp"

#include <deque>

namespace zv {

template <auto F> int initEntry(PyObject* self, PyObject* args, PyObject* kwargs) noexcept {
    return guarded(-1, [&] {
        Ref<>::steal(invoke<F>(self, &PyTuple_GET_ITEM(args, 0), PyTuple_GET_SIZE(args), nullptr, kwargs));
        return 0;
    });
}

// Construction happens in __new__: every field has its default before __init__ runs, or if it never does.
template <class T> PyObject* newEntry(PyTypeObject* type, PyObject*, PyObject*) noexcept {
    return guarded<PyObject*>(nullptr, [&] {
        Ref<> self = Ref<>::steal(type->tp_alloc(type, 0));
        PyObject_GC_UnTrack(self.raw());  // a collection must not see a half built object
        try {
            new (self.raw() + 1) T;
        } catch (...) {  // nothing to destroy yet: give the memory back
            type->tp_free(self.release());
            if (type->tp_flags & Py_TPFLAGS_HEAPTYPE) Py_DECREF(type);
            throw;
        }
        PyObject_GC_Track(self.raw());
        return self.release();
    });
}
inline void deallocEntry(PyObject* self) noexcept {
    PyObject_GC_UnTrack(self);
    releaseInTurn(self, deallocEntry, [self] {
        native<Object>(self)->~Object();
        Py_TYPE(self)->tp_free(self);
    });
}
inline int traverseEntry(PyObject* self, visitproc visit, void* arg) noexcept {
    RefVisitor visitor{visit, arg};
    native<Object>(self)->eachRef(visitor);
    return visitor.result;
}
inline int clearEntry(PyObject* self) noexcept {
    RefVisitor visitor{nullptr, nullptr};
    native<Object>(self)->eachRef(visitor);
    return 0;
}

template <auto Get> PyObject* getEntry(PyObject* self, void*) noexcept {
    using M = Member<decltype(Get)>;
    return guarded<PyObject*>(nullptr, [&] {
        auto* object = native<typename M::Class>(self);
        if constexpr (std::is_member_object_pointer_v<decltype(Get)>)
            return Convert<typename M::Value>::to(object->*Get);
        else return Convert<typename M::Value>::to((object->*Get)());
    });
}
// Deleting a reference stores None; anything else cannot be deleted.
template <auto Set> int setEntry(PyObject* self, PyObject* value, void*) noexcept {
    return guarded(-1, [&] {
        if constexpr (std::is_member_object_pointer_v<decltype(Set)>) {
            using M = Member<decltype(Set)>;
            constexpr bool isReference = !std::is_arithmetic_v<typename M::Value>;
            if (!value && !isReference) raise(PyExc_AttributeError, "this attribute cannot be deleted");
            native<typename M::Class>(self)->*Set = Convert<typename M::Value>::from(value ? value : Py_None);
        } else {
            if (!value) raise(PyExc_AttributeError, "this attribute cannot be deleted");
            Ref<>::steal(invoke<Set>(self, &value, 1, nullptr));
        }
        return 0;
    });
}

template <auto F> PyObject* reprEntry(PyObject* self) noexcept { return plainEntry<F>(self, nullptr); }

// A binary operator: `F` gets the right operand. Operands of other types are left to Python.
template <auto F> PyObject* operatorEntry(PyObject* left, PyObject* right) noexcept {
    using S = Callable<decltype(F)>;
    using Right = std::tuple_element_t<0, typename S::Parameters>;
    bool fits = PyObject_TypeCheck(left, &typeOf<typename S::Class>);
    if constexpr (std::is_reference_v<Right>)
        fits = fits && PyObject_TypeCheck(right, &typeOf<std::remove_cvref_t<Right>>);
    if (!fits) Py_RETURN_NOTIMPLEMENTED;
    return guarded<PyObject*>(nullptr, [&] { return invoke<F>(left, &right, 1, nullptr); });
}

// What a property is called: by one name or by two.
struct Names {
    const char* name;
    const char* alias;
    Names(const char* n, const char* a = nullptr) : name(n), alias(a) {}
};

template <class T, class Base = void> class Class {
public:
    Class(const char* name, const char* doc) : type(typeOf<T>), declared(type.tp_methods), classDoc(doc) {
        static_assert(std::is_base_of_v<Object, T> && alignof(T) <= alignof(void*));
        if (declared) return;  // a second import in this process finds the class as the first one left it
        methods.clear();       // of a first one that memory did not suffice for
        accessors.clear();
        type.tp_name = name;
        type.tp_basicsize = sizeof(PyObject) + sizeof(T);
        type.tp_flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE | Py_TPFLAGS_HAVE_GC;
        type.tp_new = newEntry<T>;
        type.tp_dealloc = deallocEntry;
        type.tp_traverse = traverseEntry;
        type.tp_clear = clearEntry;
        if constexpr (!std::is_void_v<Base>) {
            static_assert(std::is_base_of_v<Base, T>);
            type.tp_base = &typeOf<Base>;
            // Strictly larger than the base: Python then refuses to mix two native siblings in one class.
            type.tp_basicsize = std::max<Py_ssize_t>(
                type.tp_basicsize, typeOf<Base>.tp_basicsize + static_cast<Py_ssize_t>(sizeof(void*)));
        }
    }
    // The class doc keeps its words: the parameters show in the signature alone.
    template <auto F> Class& init(std::vector<Param> params = {})
        requires(!isField<decltype(F)>)
    {
        if (declared) return *this;
        classSignature = Documented::of<F>().signature(shortName(), "", params);
        declareSignature<F>("__init__", std::move(params));
        type.tp_init = initEntry<F>;
        return *this;
    }
    // A constructor that copies its arguments into these fields.
    template <auto... Fields> Class& init(std::vector<Param> params)
        requires(isField<decltype(Fields)> && ...)
    {
        return init<FieldCopy<T, Fields...>{}>(std::move(params));
    }
    template <auto F> Class& method(const char* name, std::vector<Param> params, const char* doc) {
        if (declared) return *this;
        Documented documented = Documented::of<F>();
        texts.push_back(documented.signature(name, "$self", params) + documented.text(params, doc));
        declareSignature<F>(name, std::move(params));
        methods.push_back(methodDef<F>(name, texts.back().c_str()));
        return *this;
    }
    template <auto Get> Class& readonly(const char* name, const char* doc) {
        if (!declared) accessors.push_back({name, getEntry<Get>, nullptr, doc, nullptr});
        return *this;
    }
    template <auto Get, auto Set = Get> Class& property(Names names, const char* doc) {
        if (declared) return *this;
        if constexpr (std::is_member_function_pointer_v<decltype(Set)>) declareSignature<Set>(names.name, {{"value"}});
        accessors.push_back({names.name, getEntry<Get>, setEntry<Set>, doc, nullptr});
        if (!names.alias) return *this;
        texts.push_back(std::string("the same as ") + names.name);
        accessors.push_back({names.alias, getEntry<Get>, setEntry<Set>, texts.back().c_str(), nullptr});
        return *this;
    }
    template <auto F> Class& repr() {
        if (declared) return *this;
        declareSignature<F>("__repr__", {});
        type.tp_repr = reprEntry<F>;
        return *this;
    }
    template <auto F> Class& str() {
        if (declared) return *this;
        declareSignature<F>("__str__", {});
        type.tp_str = reprEntry<F>;
        return *this;
    }
    template <auto F> Class& binaryOperator(binaryfunc PyNumberMethods::* slot) {
        if (declared) return *this;
        declareSignature<F>("operator", {{"other"}});
        numbers.*slot = operatorEntry<F>;
        type.tp_as_number = &numbers;
        return *this;
    }
    Class& buffer(PyBufferProcs& procs) {
        type.tp_as_buffer = &procs;
        return *this;
    }
    Class& addTo(PyObject* module) {
        if (!declared) {
            methods.push_back({});
            accessors.push_back({});
            texts.push_back(classSignature + classDoc);
            type.tp_doc = texts.back().c_str();
            type.tp_getset = accessors.data();
            type.tp_methods = methods.data();  // last: the declaration is complete
        }
        checked(PyType_Ready(&type));  // goes on where an import ended that memory did not suffice for
        checked(PyObject_SetAttrString(module, shortName(), classOf<T>()));
        return *this;
    }
    // An attribute of the class itself, shared by all instances.
    Class& attribute(const char* name, const Ref<>& value) {
        checked(PyDict_SetItemString(type.tp_dict, name, value.raw()));
        PyType_Modified(&type);
        return *this;
    }

private:
    const char* shortName() const {
        const char* dot = std::strrchr(type.tp_name, '.');
        return dot ? dot + 1 : type.tp_name;
    }

    PyTypeObject& type;
    const bool declared;  // in this process, by an earlier import
    std::string classSignature, classDoc;
    // Python keeps pointers into these as long as the process lives.
    inline static std::vector<PyMethodDef> methods;
    inline static std::vector<PyGetSetDef> accessors;
    inline static std::deque<std::string> texts;
    inline static PyNumberMethods numbers;
};

// Creates an object from C++ as __new__ leaves it, without a detour through argument tuples.
template <class T> Ref<T> make() { return Ref<T>::steal(newEntry<T>(&typeOf<T>, nullptr, nullptr)); }

// Creates an object the way a script does, from the arguments of its constructor.
template <class T, class... A> Ref<T> make(const A&... args)
    requires(sizeof...(A) > 0)
{
    return Ref<T>::steal(PyObject_CallFunctionObjArgs(classOf<T>(), toPython(args).raw()..., nullptr));
}

}  // namespace zv
