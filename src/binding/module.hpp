// The module object: functions, values, and the names that the code reaches through it at run time.
#pragma once
#include "binding/callable.hpp"

namespace zv {

class Module {
public:
    // Kept for good: code may run after a script has thrown the module out of sys.modules.
    explicit Module(PyObject* module) : object(module) { current = Ref<>::borrow(module).release(); }

    template <auto F> Module& function(const char* name, std::vector<Param> params, const char* doc) {
        static std::string text;
        static PyMethodDef definition;
        Documented documented = Documented::of<F>();
        text = documented.signature(name, "", params) + documented.text(params, doc);
        declareSignature<F>(name, std::move(params));
        definition = methodDef<F>(name, text.c_str());
        return value(name,
            Ref<>::steal(PyCFunction_NewEx(&definition, nullptr, Ref<>::steal(PyModule_GetNameObject(object)).raw())));
    }
    Module& value(const char* name, const Ref<>& v) {
        checked(PyObject_SetAttrString(object, name, v.raw()));
        return *this;
    }
    Module& constant(const char* name, int v) { return value(name, toPython(v)); }
    // Runs Python source in the module: the classes that scripts see as plain Python.
    Module& source(const char* code);
    PyObject* raw() const { return object; }

    // A module-level name as it is now; scripts may have replaced it.
    static Ref<> global(Name& name) { return getAttribute(current, name); }
    static void setGlobal(Name& name, const Ref<>& value) { setAttribute(current, name, value.raw()); }

private:
    PyObject* object;
    inline static PyObject* current = nullptr;
};

// A function of Python's builtins module.
Ref<> builtin(Name& name);

// print(text) of Python: goes wherever sys.stdout leads now.
void print(const Ref<>& text);
inline void print(const std::string& text) { print(toPython(text)); }

// len(object)
inline Py_ssize_t lengthOf(PyObject* o) {
    Py_ssize_t length = PyObject_Size(o);
    if (length < 0) throw PythonError{};
    return length;
}

// A walk along an iterable, as a for loop does it. A list needs no iterator, by which a script could find the list.
class Walk {
public:
    explicit Walk(PyObject* iterable);
    Ref<> next();  // empty at the end

private:
    bool isList;
    Ref<> walked;  // the list, or an iterator
    Py_ssize_t index = 0;
};

template <class F> void forEach(PyObject* iterable, F&& body) {
    Walk walk(iterable);
    while (Ref<> item = walk.next()) body(item.raw());
}

// `item in container`
inline bool contains(PyObject* container, PyObject* item) {
    return checked(PySequence_Contains(container ? container : Py_None, item)) != 0;
}

}  // namespace zv
