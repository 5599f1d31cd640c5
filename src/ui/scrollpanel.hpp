// A viewport of fixed size over one content widget, with a scroll bar.
#pragma once
#include "ui/abstractcontainer.hpp"
#include "ui/slider.hpp"

namespace zv {

struct UIScrollPanel : AbstractUIContainer {
    int scrollPosX = 0, scrollPosY = 0;  // how far the content is moved, in pixels
    int maxScrollX = 0, maxScrollY = 0;
    int wheelScrollPixels = 50;
    Ref<UISlider> slider;  // no child: the panel drives it at each stage

    void eachRef(RefVisitor& visit) override {
        AbstractUIContainer::eachRef(visit);
        visit(slider);
    }

    void setRenderer(const Ref<UIRenderer>& newRenderer) override;
    void calculateMinSize() override;
    void calculateMaxSize() override;
    void calculatePos() override;

    UIScrollPanel() { paddingLeft = paddingTop = paddingRight = paddingBottom = 10; }
    void init(Ref<UIWidget> newContent);
    Ref<> getContent() const;
    void setContent(Ref<UIWidget> newContent);
    int getScrollPosX() const { return scrollPosX; }
    void setScrollPosX(int position);
    int getScrollPosY() const { return scrollPosY; }
    void setScrollPosY(int position);
    void doUpdate(int mouseX, int mouseY, bool isMouseLeftPressed) override;
    void doRender(const Clip& clip) override;
    bool handleClick(MouseClickEvent* event);
    bool handleScroll(MouseWheelEvent* event);

private:
    Ref<UIWidget> content() const;
};

void declareUIScrollPanel(Module&);

}  // namespace zv
