// A widget that shows a picture, stretched to its own size.
#pragma once
#include "gui/uiwidget.hpp"
#include "resources/texture.hpp"

namespace zv {

struct UIImage : UIWidget {
    Ref<Texture> texture;
    int alpha = 255;  // opacity, 0 to 255

    void eachRef(RefVisitor& visit) override {
        UIWidget::eachRef(visit);
        visit(texture);
    }

    void init(Ref<Texture> newTexture, PyObject* newWidth, PyObject* newHeight);
    Ref<Texture> getTexture() const { return texture; }
    void setTexture(Ref<Texture> newTexture);
    int getAlpha() const { return alpha; }
    void setAlpha(int newAlpha);
    void doRender(const Clip& clip) override;

private:
    // The given size; None is that of the texture.
    void setSize(PyObject* newWidth, PyObject* newHeight);
};

void declareUIImage(Module&);

}  // namespace zv
