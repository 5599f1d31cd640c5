#include "gui/uitheme.hpp"

#include "binding/files.hpp"
#include "binding/items.hpp"

namespace zv {

static Ref<> loadJson(PyObject* filename) {
    static Name json{"_json"}, load{"load"};
    Ref<> loaded;
    withFile(filename, "r", [&](PyObject* file) { loaded = callByName(Module::global(json).raw(), load, file); });
    return loaded;
}

// Where the theme file says that another file is.
static Ref<> pathIn(const Ref<>& folder, const Ref<>& name) {
    static Name path{"_ospath"}, join{"join"};
    return callByName(Module::global(path).raw(), join, folder, name);
}

static void setItem(const Ref<Dict>& dict, PyObject* key, const Ref<>& value) {
    checked(PyDict_SetItem(dict.raw(), key, value.raw()));
}

// By value: the name's own comparison may run a script, and the dict must outlive that.
static Ref<> lookUp(Ref<Dict> dict, PyObject* key) { return Ref<>::steal(PyObject_GetItem(dict.orNone(), key)); }

void UITheme::init(PyObject* filename) {
    static Name path{"_ospath"}, dirname{"dirname"};
    Ref<> theme = loadJson(filename);
    Ref<> pieces = item(theme.raw(), "widgets");
    Ref<Dict> newWidgets = Ref<Dict>::borrow(checkType<Dict>(pieces.raw()));
    Ref<> folder = callByName(Module::global(path).raw(), dirname, filename);
    Ref<Texture> newTileset = make<Texture>();
    newTileset->init(pathIn(folder, item(theme.raw(), "tileset")).raw(), nullptr);

    Ref<Dict> newFonts = newDict(), newIntColors = newDict(), newColors = newDict();
    Ref<> fontEntries = item(theme.raw(), "fonts");
    forEach(fontEntries.raw(), [&](PyObject* name) {
        Ref<> entry = Ref<>::steal(PyObject_GetItem(fontEntries.raw(), name));
        Ref<> file = pathIn(folder, item(entry.raw(), "file"));
        Ref<Font> font = make<Font>();
        font->init(file, item(entry.raw(), "size").raw());
        setItem(newFonts, name, toPython(font));
    });
    Ref<> colorEntries = item(theme.raw(), "colors");
    forEach(colorEntries.raw(), [&](PyObject* name) {
        Ref<> value = Ref<>::steal(PyObject_GetItem(colorEntries.raw(), name));
        Ref<> word = call<&UITheme::convertHex>(*this, value.raw());
        setItem(newIntColors, name, word);
        setItem(newColors, name, toPython(call<&UITheme::convertColor>(*this, word.raw())));
    });

    tileset = std::move(newTileset);
    widgets = std::move(newWidgets);
    fonts = std::move(newFonts);
    intColors = std::move(newIntColors);
    colors = std::move(newColors);
}

Ref<Font> UITheme::getFont(Ref<Str> name) const { return Convert<Ref<Font>>::from(lookUp(fonts, name.orNone()).raw()); }
Ref<> UITheme::getColor(PyObject* name) const { return lookUp(colors, name); }
Ref<> UITheme::getIntColor(PyObject* name) const { return lookUp(intColors, name); }

// Python's own numbers, of any size: (r, g, b) or (r, g, b, a) to a << 24 | r << 16 | g << 8 | b.
Ref<> UITheme::convertRgbaToIntColor(PyObject* color) const {
    size_t count = lengthOf(color) == 3 ? 3 : 4;
    std::vector<Ref<>> parts = unpack(color, count);
    if (count == 3) parts.push_back(toPython(255));
    Ref<> word = parts[2];
    const std::pair<size_t, int> shifts[] = {{1, 8}, {0, 16}, {3, 24}};
    for (auto [channel, bits] : shifts) {
        Ref<> shifted = Ref<>::steal(PyNumber_Lshift(parts[channel].raw(), toPython(bits).raw()));
        word = Ref<>::steal(PyNumber_Or(word.raw(), shifted.raw()));
    }
    return word;
}

Ref<> UITheme::convertHex(PyObject* value) const {
    Ref<> text = Ref<>::steal(PyObject_Str(value));
    return Ref<>::steal(PyLong_FromUnicodeObject(text.raw(), 16));
}

std::tuple<int, int, int, int> UITheme::convertColor(PyObject* word) const {
    unsigned long bits = PyLong_AsUnsignedLongMask(integerOf(word).raw());
    auto channel = [bits](int shift) { return static_cast<int>(bits >> shift & 0xFF); };
    return {channel(16), channel(8), channel(0), channel(24)};
}

void declareUITheme(Module& module) {
    static const Param name{"name", Required{}, "str"};
    Class<UITheme>("zelvarine.UITheme",
        "The look of the widgets, from a JSON file: \"tileset\" is an image, \"widgets\" the pieces in it,\n"
        "\"fonts\" and \"colors\" have names that the widgets look up. Files are relative to the theme file.\n\n"
        "A missing key raises KeyError, a color that is no hexadecimal number ValueError; failures to read\n"
        "the files pass through.")
        .init<&UITheme::init>({{"filename"}})
        .readonly<&UITheme::widgets>("widgets", "dict of the pieces in the tileset, as the file holds them")
        .method<&UITheme::getFont>(
            "getFont", {name}, "The font of that name; KeyError if the theme lacks it.\n@return(Font)")
        .method<&UITheme::getColor>(
            "getColor", {name}, "Returns the RGBA color as a tuple\n@return((int, int, int, int))")
        .method<&UITheme::getIntColor>(
            "getIntColor", {name}, "Returns the RGB color as an int with one byte per color\n@return(int)")
        .method<&UITheme::convertRgbaToIntColor>("_convertRgbaToIntColor",
            {{"color", Required{}, "(r, g, b) or (r, g, b, a)"}},
            "The color as a word 0xAARRGGBB, opaque without alpha.\n@return(int)")
        .method<&UITheme::convertHex>("__convertHex", {{"value", Required{}, "str or int"}},
            "The number that `str(value)` is in base 16, with or without 0x before it.\n@return(int)")
        .method<&UITheme::convertColor>(
            "__convertColor", {{"word", Required{}, "int"}}, "A word 0xAARRGGBB as (r, g, b, a).")
        .addTo(module.raw());
}

}  // namespace zv
