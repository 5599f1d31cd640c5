// The two directions of layout and drawing, so that each rule is written once for both.
#pragma once
#include "ui/abstractcontainer.hpp"

namespace zv {

struct Axis {
    // of a widget
    int UIWidget::*position, UIWidget::*size, UIWidget::*sizePolicy, UIWidget::*align;
    int UIWidget::*marginBefore, UIWidget::*marginAfter;
    int AbstractUIContainer::*paddingBefore, AbstractUIContainer::*paddingAfter;
    int alignFar, alignMiddle;
    // of a rectangle
    int SDL_Rect::*start, SDL_Rect::*length;
    // in the tables of a theme
    Name &startName, &lengthName, &firstName, &lastName;

    static const Axis horizontal, vertical;

    const Axis& other() const { return this == &horizontal ? vertical : horizontal; }
    // That of two coordinates or lengths, across and down, which counts along this axis.
    template <class T> T of(T across, T down) const { return this == &horizontal ? across : down; }

    SDL_Rect rect(int64_t from, int fromAcross, int64_t size, int sizeAcross) const {
        SDL_Rect result;
        result.*start = saturate(from);
        result.*length = saturate(size);
        result.*other().start = fromAcross;
        result.*other().length = sizeAcross;
        return result;
    }
    int64_t end(const UIWidget& widget) const { return int64_t{widget.*position} + widget.*size; }
    int64_t outerSize(const UIWidget& widget) const {
        return int64_t{widget.*size} + widget.*marginBefore + widget.*marginAfter;
    }
};

}  // namespace zv
