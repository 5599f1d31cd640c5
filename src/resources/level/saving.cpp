// Writing a level as its pair of files: the JSON description and the raw grid.
#include "binding/files.hpp"
#include "binding/items.hpp"
#include "resources/level.hpp"

namespace zv {

static void printWritten(const Ref<>& filename) {
    print(Ref<>::steal(PyUnicode_FromFormat("wrote file %U", filename.raw())));
}

void Level::saveFile(Ref<Str> filename) {
    Grid saved = grid();
    if (width != saved.width || height != saved.height)
        raise(PyExc_ValueError, "the grid has %d by %d cells, but the metadata is of a level of %d by %d", saved.width,
            saved.height, width, height);
    call<&Level::updateEntityMetadata>(*this);
    Ref<> description = descriptionName(filename);
    withFile(description.raw(), "w", [&](PyObject* file) {
        Ref<> arguments = Ref<>::steal(PyTuple_Pack(1, metadata.orNone()));
        Ref<> options = DictBuilder().set("sort_keys", true).set("indent", 4).done();
        Ref<> function = getAttribute(Module::global("_json"_name).raw(), "dumps"_name);
        callByName(file, "write"_name, Ref<>::steal(PyObject_Call(function.raw(), arguments.raw(), options.raw())));
    });
    printWritten(description);
    Ref<> bytes = Ref<>::steal(
        PyBytes_FromStringAndSize(reinterpret_cast<const char*>(cells.data()), static_cast<Py_ssize_t>(cells.size())));
    withFile(filename.raw(), "wb", [&](PyObject* file) {
        Ref<> write = getAttribute(file, "write"_name);
        for (const char& byte :
            std::string_view(PyBytes_AS_STRING(bytes.raw()), static_cast<size_t>(PyBytes_GET_SIZE(bytes.raw()))))
            Ref<>::steal(PyObject_CallFunctionObjArgs(
                write.raw(), Ref<>::steal(PyBytes_FromStringAndSize(&byte, 1)).raw(), nullptr));
    });
    printWritten(Ref<>::borrow(filename.raw()));
}

void Level::updateEntityMetadata() {
    setItem(metadata.raw(), "entities", Ref<>::steal(PyList_New(0)));
    forEach(entities.raw(), [&](PyObject* entity) {
        Ref<> dict = DictBuilder().set("id", getAttribute(entity, "id"_name)).done();
        forEach(callByName(entity, "getComponents"_name).raw(), [&](PyObject* component) {
            auto* type = reinterpret_cast<PyObject*>(Py_TYPE(component));
            bool isDummy = type == Module::global("DummyComponent"_name).raw();
            Ref<> name = isDummy ? getAttribute(component, "typeName"_name)
                                 : item(Module::global("_COMPONENTS"_name).raw(), type);
            Ref<> dumped = !isDummy && hasAttribute(component, "dumpToDict"_name)
                ? callByName(component, "dumpToDict"_name, *this)
                : call<&Level::dumpToDict>(*this, component);
            checked(PyDict_SetItem(dict.raw(), name.raw(), dumped.orNone()));
        });
        callByName(item(metadata.raw(), "entities").raw(), "append"_name, dict);
    });
}

Ref<> Level::dumpToDict(PyObject* object) {
    RecursionGuard guard(" while a component is saved");  // objects may refer to each other in a circle
    Ref<> value = hasAttribute(object, "__dict__"_name) ? getAttribute(object, "__dict__"_name) : Ref<>::borrow(object);
    auto dumped = [&](PyObject* inner) { return call<&Level::dumpToDict>(*this, inner); };
    if (PyDict_CheckExact(value.raw())) {
        Ref<> dict = Ref<>::steal(PyDict_New());
        forEach(callByName(value.raw(), "items"_name).raw(), [&](PyObject* item) {
            PyObject* key = PyTuple_GET_ITEM(item, 0);
            if (Convert<bool>::from(callByName(key, "startswith"_name, "_").raw())) return;
            checked(PyDict_SetItem(dict.raw(), key, dumped(PyTuple_GET_ITEM(item, 1)).orNone()));
        });
        return dict;
    }
    if (hasAttribute(value.raw(), "__iter__"_name) && !PyUnicode_CheckExact(value.raw())) {
        Ref<> list = Ref<>::steal(PyList_New(0));
        forEach(value.raw(), [&](PyObject* inner) { append(list.raw(), dumped(inner)); });
        return list;
    }
    return value;
}

}  // namespace zv
