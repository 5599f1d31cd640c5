// The look of the widgets: a tileset, the pieces in it, fonts and colors, all from one JSON file.
#pragma once
#include "resources/font.hpp"

namespace zv {

struct UITheme : Object {
    Ref<Texture> tileset;
    Ref<Dict> fonts = newDict(), intColors = newDict(), colors = newDict(), widgets = newDict();

    void eachRef(RefVisitor& visit) override {
        visit(tileset);
        visit(fonts);
        visit(intColors);
        visit(colors);
        visit(widgets);
    }

    void init(PyObject* filename);
    Ref<Font> getFont(Ref<Str> name) const;
    Ref<> getColor(PyObject* name) const;
    Ref<> getIntColor(PyObject* name) const;
    Ref<> convertRgbaToIntColor(PyObject* color) const;
    Ref<> convertHex(PyObject* value) const;
    std::tuple<int, int, int, int> convertColor(PyObject* word) const;

private:
    static Ref<Dict> newDict() { return Ref<Dict>::steal(PyDict_New()); }
};

void declareUITheme(Module&);

}  // namespace zv
