#include "binding/callable.hpp"

#include <cstdio>

namespace zv {

static void bindKeyword(const Signature& s, Ref<>* slots, size_t count, PyObject* key, PyObject* value) {
    const char* function = s.name.text;
    for (size_t i = 0; i < count; i++) {
        if (!PyUnicode_Check(key) || PyUnicode_CompareWithASCIIString(key, s.params[i].name) != 0) continue;
        if (slots[i]) raise(PyExc_TypeError, "%s() got multiple values for argument '%s'", function, s.params[i].name);
        slots[i] = Ref<>::borrow(value);
        return;
    }
    raise(PyExc_TypeError, "%s() got an unexpected keyword argument '%S'", function, key);
}

void bindArguments(const Signature& s, Ref<>* slots, size_t count, bool hasArgs, PyObject* const* argv,
    Py_ssize_t given, PyObject* kwnames, PyObject* kwdict) {
    const char* function = s.name.text;
    size_t positional = static_cast<size_t>(given);
    if (positional > count && !hasArgs)
        raise(PyExc_TypeError, "%s() takes at most %zu positional argument%s (%zd given)", function, count,
            count == 1 ? "" : "s", given);
    for (size_t i = 0; i < std::min(positional, count); i++) slots[i] = Ref<>::borrow(argv[i]);
    for (Py_ssize_t i = 0; kwnames && i < PyTuple_GET_SIZE(kwnames); i++)
        bindKeyword(s, slots, count, PyTuple_GET_ITEM(kwnames, i), argv[given + i]);
    Py_ssize_t position = 0;
    for (PyObject *key, *value; kwdict && PyDict_Next(kwdict, &position, &key, &value);)
        bindKeyword(s, slots, count, key, value);
    for (size_t i = 0; i < count; i++)
        if (!slots[i] && std::holds_alternative<Required>(s.params[i].fallback))
            raise(PyExc_TypeError, "%s() missing required argument '%s' (pos %zu)", function, s.params[i].name, i + 1);
}

static std::string shortest(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", v);
    std::string result = text;
    return result.find_first_of(".e") == std::string::npos ? result + ".0" : result;
}

// How docs and signatures write a parameter: "name" or "name=fallback".
static std::string written(const Param& p) {
    struct Writer {
        std::string operator()(Required) { return {}; }
        std::string operator()(None) { return "None"; }
        std::string operator()(bool v) { return v ? "True" : "False"; }
        std::string operator()(int v) { return std::to_string(v); }
        std::string operator()(double v) { return shortest(v); }
        std::string operator()(const char* v) { return std::string("'").append(v).append("'"); }
        std::string operator()(Omitted v) { return v.text; }
    };
    std::string fallback = std::visit(Writer{}, p.fallback);
    return fallback.empty() ? p.name : std::string(p.name).append("=").append(fallback);
}

// Python cuts this first line off __doc__ and shows it as __text_signature__.
std::string Documented::signature(const char* name, const char* self, const std::vector<Param>& params) const {
    std::string list = self;
    auto add = [&](const std::string& item) { list += (list.empty() ? "" : ", ") + item; };
    for (const Param& p : params) add(written(p));
    if (hasArgs) add("*args");
    return std::string(name) + "(" + list + ")\n--\n\n";
}

std::string Documented::text(const std::vector<Param>& params, const char* doc) const {
    std::string text = doc;
    for (size_t i = 0; i < params.size(); i++)
        text += "\n@param(" + written(params[i]) + ", " + (params[i].type ? params[i].type : argTypes[i]) + ")";
    if (!resultType.empty() && text.find("@return") == std::string::npos) text += "\n@return(" + resultType + ")";
    return text;
}

bool inherits(PyTypeObject* type, const PyTypeObject* base, Name& name) {
    if (type->tp_getattro != PyObject_GenericGetAttr) return false;
    for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(type->tp_mro); i++) {
        auto* cls = reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(type->tp_mro, i));
        if (cls == base) return true;
        if (!cls->tp_dict || checked(PyDict_Contains(cls->tp_dict, name.get()))) return false;
    }
    return false;
}

bool isOverridden(PyObject* self, const PyTypeObject* base, Name& name, PyCFunction function) {
    if (!inherits(Py_TYPE(self), base, name)) return true;
    Ref<> found = getAttribute(self, name);
    return !PyCFunction_Check(found.raw()) || PyCFunction_GET_SELF(found.raw()) != self ||
        PyCFunction_GET_FUNCTION(found.raw()) != function;
}

}  // namespace zv
