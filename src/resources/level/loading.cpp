// Reading a level from its pair of files: the JSON description and the raw grid.
#include "binding/files.hpp"
#include "binding/items.hpp"
#include "resources/entity/sprite.hpp"
#include "resources/level.hpp"

#include <algorithm>

namespace zv {

[[noreturn]] static void raiseLevelFormat(const Ref<Str>& filename, const Ref<>& message) {
    Ref<> error = callFunction(Module::global("LevelFormatException"_name).raw(), filename, message);
    PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(error.raw())), error.raw());
    throw PythonError{};
}
[[noreturn]] static void raiseLevelFormat(const Ref<Str>& filename, const char* message) {
    raiseLevelFormat(filename, toPython(message));
}

Ref<> Level::descriptionName(const Ref<Str>& filename) {
    return Ref<>::steal(PyNumber_Add(filename.orNone(), toPython(".json").raw()));
}

// The size of the buffer of a grid. Saving counts its bytes in 32 bits, so there cannot be more.
static CellBuffer newCells(int width, int height) {
    if (width < 0 || height < 0) raise(PyExc_OverflowError, "can't convert negative value to size_t");
    if (int64_t{width} * height > INT_MAX / cellBytes)
        raise(PyExc_OverflowError, "a grid of %d by %d cells is too large", width, height);
    return CellBuffer(width, height);
}

void Level::loadFromFile(Ref<Str> filename) {
    withFile(descriptionName(filename).raw(), "r", [&](PyObject* file) {
        call<&Level::loadMetadata>(*this, filename, Convert<Ref<Str>>::from(callByName(file, "read"_name).raw()));
        loadFogSettings();
    });
    withFile(filename.orNone(), "rb", [&](PyObject* file) {
        int newWidth = Convert<int>::from(item(metadata.raw(), "width").raw());
        int newHeight = Convert<int>::from(item(metadata.raw(), "height").raw());
        Ref<> content = callByName(file, "read"_name);
        CellBuffer newGrid = newCells(newWidth, newHeight);
        char* bytes;
        Py_ssize_t length;
        checked(PyBytes_AsStringAndSize(content.raw(), &bytes, &length));
        std::copy_n(bytes, std::min(static_cast<size_t>(length), newGrid.size()), newGrid.data());
        cells = std::move(newGrid);
        width = newWidth;
        height = newHeight;
        call<&Level::loadAssets>(*this);
        loadEntities();
    });
}

// What json.loads makes of the text; with a ValueError in `error` if it is no JSON.
static Ref<> parsed(const Ref<Str>& text, Ref<>& error) {
    try {
        return callByName(Module::global("_json"_name).raw(), "loads"_name, text);
    } catch (const PythonError&) {
        if (!PyErr_ExceptionMatches(PyExc_ValueError)) throw;
        PyObject *type, *value, *traceback;
        PyErr_Fetch(&type, &value, &traceback);
        PyErr_NormalizeException(&type, &value, &traceback);
        Py_XDECREF(type);
        Py_XDECREF(traceback);
        error = Ref<>::steal(value);
        return {};
    }
}

void Level::loadMetadata(Ref<Str> filename, Ref<Str> header) {
    callByName(metadata.raw(), "clear"_name);
    Ref<> error, description = parsed(header, error);
    if (description.orNone() == Py_None)
        raiseLevelFormat(filename, Ref<>::steal(PyUnicode_FromFormat("Invalid JSON header: %S", error.orNone())));
    if (!hasItem(description.raw(), "width")) raiseLevelFormat(filename, "The 'width' property is required");
    if (!hasItem(description.raw(), "height")) raiseLevelFormat(filename, "The 'height' property is required");
    Ref<> newWidth = item(description.raw(), "width");
    if (!PyLong_CheckExact(newWidth.raw())) raiseLevelFormat(filename, "The 'width' property requires an int value");
    Ref<> newHeight = item(description.raw(), "height");
    if (!PyLong_CheckExact(newHeight.raw())) raiseLevelFormat(filename, "The 'height' property requires an int value");
    width = Convert<int>::from(newWidth.raw());
    height = Convert<int>::from(newHeight.raw());
    callByName(metadata.raw(), "update"_name, description);
}

Ref<> Level::convertPath(Ref<Str> path) const {
    Ref<Str> folder = assetsPath;
    if (!folder) return Ref<>::borrow(path.orNone());
    Ref<> ospath = osPath();
    if (Convert<bool>::from(callByName(ospath.raw(), "isabs"_name, path).raw())) return Ref<>::borrow(path.orNone());
    return callByName(ospath.raw(), "join"_name, folder, path);
}

Ref<Texture> Level::loadTexture(PyObject* path) {
    return make<Texture>(call<&Level::convertPath>(*this, Convert<Ref<Str>>::from(path)));
}

static Ref<SpriteAnimation> animationOf(PyObject* name, PyObject* a) {
    Ref<> frames = item(a, "frames"), oscillate = itemOr(a, "oscillate", toPython(0));
    Ref<> speed = itemOr(a, "speed", toPython(0.1)), startFrame = itemOr(a, "startFrame", toPython(0));
    Ref<> directions = itemOr(a, "directions", toPython(1));
    return make<SpriteAnimation>(name, frames, oscillate, speed, startFrame, directions);
}

static Ref<> animationsOf(PyObject* sprite) {
    Ref<> animations = Ref<>::steal(PyList_New(0));
    if (!hasItem(sprite, "animations")) {
        append(animations.raw(), make<SpriteAnimation>("_", 1, false, 1, 0, 1));
        return animations;
    }
    Ref<> byName = item(sprite, "animations");
    forEach(byName.raw(),
        [&](PyObject* name) { append(animations.raw(), animationOf(name, item(byName.raw(), name).raw())); });
    return animations;
}

// Each asset joins its list as it is made: what came before a missing file stays.
void Level::loadAssets() {
    PyObject* description = metadata.raw();
    if (hasItem(description, "skytex")) skyTexture = loadTexture(item(description, "skytex").raw());
    if (hasItem(description, "textures")) {
        Ref<> paths = item(description, "textures");
        std::vector<Ref<Texture>> places;
        places.reserve(static_cast<size_t>(lengthOf(paths.raw())));
        cellTextures.swap(places);
        forEach(paths.raw(), [&](PyObject* path) {
            Ref<Texture> texture = loadTexture(path);
            callByName(textures.raw(), "append"_name, texture);
            cellTextures.push_back(texture);
        });
    }
    if (hasItem(description, "sprites")) {
        forEach(item(description, "sprites").raw(), [&](PyObject* sprite) {
            Ref<Texture> sheet = loadTexture(item(sprite, "texture").raw());
            Ref<> animations = animationsOf(sprite);
            Ref<> xFrames = itemOr(sprite, "xFrames", toPython(1)), yFrames = itemOr(sprite, "yFrames", toPython(1));
            callByName(sprites.raw(), "append"_name, make<Sprite>(sheet, xFrames, yFrames, animations));
        });
    }
}

}  // namespace zv
