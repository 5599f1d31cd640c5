// A push button with a text label.
#pragma once
#include "ui/listcontainer.hpp"
#include "ui/text.hpp"

namespace zv {

struct UIButton : UIListContainer {
    Ref<UIText> label;  // also the first child

    void eachRef(RefVisitor& visit) override {
        UIListContainer::eachRef(visit);
        visit(label);
    }

    void calculateMinSize() override;

    void init(PyObject* text);
    Ref<Str> getText() const;
    void setText(PyObject* text);
    Ref<> getTextByName() const;
    void setTextByName(PyObject* text);
    void doRender(const Clip& clip) override;
    bool handleClick(MouseClickEvent* event);

private:
    Look look(const Clip& clip) const;
};

struct ButtonClickEvent : MouseClickEvent {
    Ref<UIButton> target;

    void eachRef(RefVisitor& visit) override {
        MouseClickEvent::eachRef(visit);
        visit(target);
    }
};

void declareUIButton(Module&);

}  // namespace zv
