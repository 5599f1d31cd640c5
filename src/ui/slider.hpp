// A bar with a knob and two step buttons, for an integer between two bounds.
#pragma once
#include "gui/uiwidget.hpp"

namespace zv {

enum SliderOrientation : int { SLIDER_ORIENTATION_HORIZONTAL, SLIDER_ORIENTATION_VERTICAL };

struct Axis;

struct UISlider : UIWidget {
    int orientation = SLIDER_ORIENTATION_HORIZONTAL;
    int value = 0, minValue = 0, maxValue = 100;
    bool firstButtonHovered = false, secondButtonHovered = false;
    bool isDragged = false;

    void calculateMinSize() override;
    // Where the value is between its bounds: 0 to 1.
    virtual float getPercent();
    virtual void setPercent(float percent);

    void init() { firstButtonHovered = secondButtonHovered = isDragged = false; }
    int getValue() const { return value; }
    void setValue(int newValue);
    double readPercent() { return static_cast<double>(getPercent()); }
    void writePercent(double percent);
    void doUpdate(int mouseX, int mouseY, bool isMouseLeftPressed) override;
    void doRender(const Clip& clip) override;
    bool handleClick(MouseClickEvent* event);
    void onDragStart(int mouseX, int mouseY);
    void onDrag(int mouseX, int mouseY, int diffX, int diffY);
    void onDragEnd(int mouseX, int mouseY);

private:
    // Along the slider: where its track begins, how far the knob travels, how long the knob is.
    struct Track {
        int64_t first, length;
        int knob;
    };
    // What the theme calls its pieces.
    struct Names {
        Name &background, &firstButton, &secondButton, &knob;
    };
    const Axis& axis() const;
    const Names& names() const;
    Track track();
    Look look() const;
    // A piece of the theme's slider, as it is when the mouse is not over it.
    Ref<> normalPiece(Name& name) const { return piece("slider"_name, name, "normal"_name); }
    int valueByName() const;
    bool isPointIn(const SDL_Rect& r, int mouseX, int mouseY);
    void step(int by);
};

struct SliderValueChangedEvent : Event {
    Ref<UISlider> target;
    int oldValue = 0, newValue = 0;

    void eachRef(RefVisitor& visit) override {
        Event::eachRef(visit);
        visit(target);
    }
};

void declareUISlider(Module&);

}  // namespace zv
