// A widget that shows text.
#pragma once
#include "gui/uitheme.hpp"
#include "gui/uiwidget.hpp"

namespace zv {

struct UIText : UIWidget {
    Ref<Str> text = Ref<Str>::steal(PyUnicode_New(0, 0));
    Ref<List> lines = Ref<List>::steal(PyList_New(0));
    Ref<> color;  // None until the theme supplies one

    void eachRef(RefVisitor& visit) override {
        UIWidget::eachRef(visit);
        visit(text);
        visit(lines);
        visit(color);
        visit(picture.texture);
        visit(picture.tuple);
    }

    void setRenderer(const Ref<UIRenderer>& newRenderer) override;
    void calculateMinSize() override;

    void init(PyObject* newText, Ref<> newColor);
    void setText(PyObject* newText);
    Ref<Str> getText() const { return text; }
    Ref<> getTextByName() const;
    void setTextByName(PyObject* newText);
    std::tuple<int, int> getRenderedTextSize() const;
    void doRender(const Clip& clip) override;
    // What render() would show now; nothing if that has to be made first, or a script has a say in it.
    Ref<Texture> shownPage() const;

private:
    // What the text measures and looks like; kept while text, font and color stay the same.
    struct {
        int64_t face = 0;
        int width = 0, height = 0;
    } size;
    struct {
        int64_t face = 0;
        SDL_Color color{};
        Ref<Tuple> tuple;  // that told the color, if it always will
        Ref<Texture> texture;
    } picture;

    Ref<> font() const;
    Ref<Texture> rendered();
};

void declareUIText(Module&);

}  // namespace zv
