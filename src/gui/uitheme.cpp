#include "gui/uitheme.hpp"

#include "binding/files.hpp"
#include "binding/items.hpp"

namespace zv {

static Ref<> loadJson(PyObject* filename) {
    Ref<> loaded;
    withFile(filename, "r",
        [&](PyObject* file) { loaded = callByName(Module::global("_json"_name).raw(), "load"_name, file); });
    return loaded;
}

// Where the theme file says that another file is.
static Ref<> pathIn(const Ref<>& folder, const Ref<>& name) {
    return callByName(Module::global("_ospath"_name).raw(), "join"_name, folder, name);
}

// Each step leaves what it has read in the theme, also when a later one fails.
void UITheme::init(PyObject* filename) {
    Ref<> theme = loadJson(filename);
    widgets = Convert<Ref<Dict>>::from(checkType<Dict>(item(theme.raw(), "widgets").raw()));
    Ref<> folder = callByName(Module::global("_ospath"_name).raw(), "dirname"_name, filename);
    tileset = make<Texture>(pathIn(folder, item(theme.raw(), "tileset")));
    Ref<> fontEntries = item(theme.raw(), "fonts");
    forEach(fontEntries.raw(), [&](PyObject* name) {
        Ref<> entry = item(fontEntries.raw(), name);
        Ref<> file = pathIn(folder, item(entry.raw(), "file"));
        setItem(fonts.raw(), name, make<Font>(file, item(entry.raw(), "size")));
    });
    Ref<> colorEntries = item(theme.raw(), "colors");
    forEach(colorEntries.raw(), [&](PyObject* name) {
        Ref<> word = call<&UITheme::convertHex>(*this, item(colorEntries.raw(), name).raw());
        setItem(intColors.raw(), name, word);
        setItem(colors.raw(), name, callByName(self(), "__convertColor"_name, word));
    });
}

// By value: the name's own comparison may run a script, and the dict must outlive that.
static Ref<> lookUp(Ref<Dict> dict, PyObject* key) { return item(dict.raw(), key); }

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
        "the files pass through. What widgets look up is missed only when they do: all text needs a font\n"
        "\"aileron\", text without a color of its own the color \"fontColor\", a filled background \"background\",\n"
        "and each widget its pieces. docs/theme-file.md tells them all.")
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
