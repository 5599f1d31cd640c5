// Writing a level as its pair of files: the JSON description and the raw grid.
#include "binding/files.hpp"
#include "binding/items.hpp"
#include "resources/level.hpp"

namespace zv {

static Name writeName{"write"};

static void printWritten(const Ref<>& filename) { print(Ref<>::steal(PyUnicode_FromFormat("wrote file %U", filename.raw()))); }

void Level::saveFile(Ref<Str> filename) {
    static Name json{"_json"}, dumps{"dumps"};
    Grid saved = grid();
    if (width != saved.width || height != saved.height)
        raise(PyExc_ValueError, "the grid has %d by %d cells, but the metadata is of a level of %d by %d", saved.width, saved.height, width, height);
    call<&Level::updateEntityMetadata>(*this);
    Ref<> description = descriptionName(filename);
    withFile(description.raw(), "w", [&](PyObject* file) {
        Ref<> arguments = Ref<>::steal(PyTuple_Pack(1, metadata.orNone()));
        Ref<> options = DictBuilder().set("sort_keys", true).set("indent", 4).done();
        Ref<> function = getAttribute(Module::global(json).raw(), dumps);
        callByName(file, writeName, Ref<>::steal(PyObject_Call(function.raw(), arguments.raw(), options.raw())));
    });
    printWritten(description);
    Ref<> bytes = Ref<>::steal(PyBytes_FromStringAndSize(reinterpret_cast<const char*>(cells.data()), static_cast<Py_ssize_t>(cells.size())));
    withFile(filename.raw(), "wb", [&](PyObject* file) {
        Ref<> write = getAttribute(file, writeName);
        for (const char& byte : std::string_view(PyBytes_AS_STRING(bytes.raw()), static_cast<size_t>(PyBytes_GET_SIZE(bytes.raw()))))
            Ref<>::steal(PyObject_CallFunctionObjArgs(write.raw(), Ref<>::steal(PyBytes_FromStringAndSize(&byte, 1)).raw(), nullptr));
    });
    printWritten(Ref<>::borrow(filename.raw()));
}

void Level::updateEntityMetadata() {
    static Name componentsName{"_COMPONENTS"}, dummyName{"DummyComponent"}, id{"id"}, getComponents{"getComponents"};
    static Name dumpToDictName{"dumpToDict"}, typeName{"typeName"};
    Ref<> dicts = Ref<>::steal(PyList_New(0));
    setItem(metadata.raw(), "entities", dicts);
    forEach(entities.raw(), [&](PyObject* entity) {
        Ref<> dict = DictBuilder().set("id", getAttribute(entity, id)).done();
        forEach(callByName(entity, getComponents).raw(), [&](PyObject* component) {
            auto* type = reinterpret_cast<PyObject*>(Py_TYPE(component));
            bool isDummy = type == Module::global(dummyName).raw();
            Ref<> name = isDummy ? getAttribute(component, typeName)
                                 : Ref<>::steal(PyObject_GetItem(Module::global(componentsName).raw(), type));
            Ref<> dumped = !isDummy && hasAttribute(component, dumpToDictName) ? callByName(component, dumpToDictName, *this)
                                                                                : call<&Level::dumpToDict>(*this, component);
            checked(PyDict_SetItem(dict.raw(), name.raw(), dumped.orNone()));
        });
        checked(PyList_Append(dicts.raw(), dict.raw()));
    });
}

Ref<> Level::dumpToDict(PyObject* object) {
    static Name dictName{"__dict__"}, iterName{"__iter__"}, items{"items"}, startswith{"startswith"};
    RecursionGuard guard(" while a component is saved");  // objects may refer to each other in a circle
    Ref<> value = hasAttribute(object, dictName) ? getAttribute(object, dictName) : Ref<>::borrow(object);
    auto dumped = [&](PyObject* inner) { return call<&Level::dumpToDict>(*this, inner); };
    if (PyDict_CheckExact(value.raw())) {
        Ref<> dict = Ref<>::steal(PyDict_New());
        forEach(callByName(value.raw(), items).raw(), [&](PyObject* item) {
            PyObject* key = PyTuple_GET_ITEM(item, 0);
            if (Convert<bool>::from(callByName(key, startswith, "_").raw())) return;
            checked(PyDict_SetItem(dict.raw(), key, dumped(PyTuple_GET_ITEM(item, 1)).orNone()));
        });
        return dict;
    }
    if (hasAttribute(value.raw(), iterName) && !PyUnicode_CheckExact(value.raw())) {
        Ref<> list = Ref<>::steal(PyList_New(0));
        forEach(value.raw(), [&](PyObject* inner) { checked(PyList_Append(list.raw(), dumped(inner).orNone())); });
        return list;
    }
    return value;
}

}  // namespace zv
