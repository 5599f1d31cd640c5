#include "ui/axis.hpp"

namespace zv {

const Axis Axis::horizontal{&UIWidget::x, &UIWidget::width, &UIWidget::sizePolicyX, &UIWidget::horizontalAlign,
    &UIWidget::marginLeft, &UIWidget::marginRight, &AbstractUIContainer::paddingLeft,
    &AbstractUIContainer::paddingRight, ALIGN_RIGHT, ALIGN_CENTER, &SDL_Rect::x, &SDL_Rect::w, "x"_name, "width"_name,
    "left"_name, "right"_name};

const Axis Axis::vertical{&UIWidget::y, &UIWidget::height, &UIWidget::sizePolicyY, &UIWidget::verticalAlign,
    &UIWidget::marginTop, &UIWidget::marginBottom, &AbstractUIContainer::paddingTop,
    &AbstractUIContainer::paddingBottom, VALIGN_BOTTOM, VALIGN_MIDDLE, &SDL_Rect::y, &SDL_Rect::h, "y"_name,
    "height"_name, "top"_name, "bottom"_name};

}  // namespace zv
