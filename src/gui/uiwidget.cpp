#include "gui/uiwidget.hpp"

#include "gui/uirenderer.hpp"
#include "sdl/error.hpp"

namespace zv {

void UIWidget::setRenderer(const Ref<UIRenderer>& newRenderer) { renderer = newRenderer; }

void UIWidget::setParent(Ref<AbstractUIContainer> newParent) {
    Ref<UIWidget> container = Ref<UIWidget>::borrow(newParent.raw());
    if (container) setRenderer(Ref<UIRenderer>(container->renderer));
    parent = std::move(container);
}

void UIWidget::calculateMinSize() {
    if (sizePolicyX != SIZE_FIXED) width = 0;
    if (sizePolicyY != SIZE_FIXED) height = 0;
}

void UIWidget::calculateMaxSize() {
    if (!parent && !renderer) return;
    SDL_Point available = parent ? parent->innerSize() : renderer->targetSize();
    if (sizePolicyX == SIZE_GROW) width = saturate(int64_t{available.x} - marginLeft - marginRight);
    if (sizePolicyY == SIZE_GROW) height = saturate(int64_t{available.y} - marginTop - marginBottom);
}

SDL_Rect UIWidget::getClippedRect(const Clip& clip) {
    SDL_Rect result{0, 0, 0, 0};
    unraisable("zelvarine.UIWidget._getClippedRect"_name, [&] {
        int numbers[4], *number = numbers;
        for (const Ref<>* given : {&clip.x, &clip.y, &clip.width, &clip.height}) {
            *number = saturate(Convert<int64_t>::from(given->orNone()));
            if (*number++ < 0) {
                result = rect();
                return;
            }
        }
        result = intersection({numbers[0], numbers[1], numbers[2], numbers[3]}, rect());
    });
    return result;
}

void assignEdges(const char* method, Args values, int& top, int& right, int& bottom, int& left) {
    Py_ssize_t n = values.size;
    if (n < 1 || n > 4) raise(PyExc_ValueError, "%s takes either 1, 2, 3 or 4 values. %zd were given.", method, n);
    auto value = [&](Py_ssize_t i) { return Convert<int>::from(values.items[i]); };
    top = value(0);
    right = value(n > 1 ? 1 : 0);
    bottom = value(n > 2 ? 2 : 0);
    left = value(n > 3 ? 3 : n > 1 ? 1 : 0);
}

void UIWidget::setMargin(Args values) {
    assignEdges("setMargin", values, marginTop, marginRight, marginBottom, marginLeft);
}

bool UIWidget::isUnder(int mouseX, int mouseY) {
    if (isNative(*this)) return contains(rect(), mouseX, mouseY);
    return Convert<bool>::from(callByName(self(), "isInside"_name, mouseX, mouseY).raw());
}

bool UIWidget::hovered() {
    return isNative(*this) ? isHovered : Convert<bool>::from(getAttribute(self(), "isHovered"_name).raw());
}

bool UIWidget::handleClick(MouseClickEvent* event) {
    if (!isEnabled || !hovered()) return false;
    Ref<> handler = getAttribute(self(), "onClick"_name);
    if (handler.raw() != Py_None) callFunction(handler.raw(), event);
    return true;
}

void UIWidget::requireRenderer() {
    if (isVisible && !renderer) raiseEngine("Can not render a widget that is not attached to a UIRenderer object!");
}

std::optional<Canvas> UIWidget::beginRender(const Clip& clip) {
    if (!isVisible) return {};
    SDL_Rect seen = getClippedRect(clip);
    if (isEmpty(seen)) {
        imprint.forget();
        return {};
    }
    requireRenderer();
    return Canvas(renderer->target, seen);
}

Ref<> UIWidget::plainPieces() const {
    const UITheme* theme = renderer->theme.get();
    return Ref<>::borrow(theme && isNative(*theme) ? theme->widgets.raw() : nullptr);
}

Ref<> UIWidget::pieces() const {
    if (Ref<> plain = plainPieces()) return plain;
    Ref<UITheme> theme = renderer->theme;
    return getAttribute(theme.raw(), "widgets"_name);
}

Ref<Texture> UIWidget::tileset() const { return renderer->theme->tileset; }

Look UIWidget::tilesetLook() const {
    const UITheme* theme = renderer->theme.get();
    Look look;
    look.add(theme ? theme->tileset : Ref<Texture>());
    return look;
}

void UIWidget::fireEvent(const Ref<>& event) const {
    if (renderer && renderer->engine) callByName(renderer->engine.raw(), "fireEvent"_name, event);
}

void UIWidget::update(int mouseX, int mouseY, bool isMouseLeftPressed) {
    if (isNative(*this)) doUpdate(mouseX, mouseY, isMouseLeftPressed);
    else callByName(self(), "update"_name, mouseX, mouseY, isMouseLeftPressed);
}

void UIWidget::render(const Clip& clip) {
    if (isNative(*this)) doRender(clip);
    else callByName(self(), "render"_name, clip.x, clip.y, clip.width, clip.height);
}

void UIWidget::doRender(const Clip&) { requireRenderer(); }

void UIWidget::doUpdate(int mouseX, int mouseY, bool isMouseLeftPressed) {
    isHovered = isUnder(mouseX, mouseY);
    if (hovered() && isMouseLeftPressed && !isDragging) {
        isDragging = true;
        dragStartX = mouseX;
        dragStartY = mouseY;
        call<&UIWidget::onDragStart>(*this, mouseX, mouseY);
    }
    if (!isDragging) return;
    if (isMouseLeftPressed) {
        int diffX = saturate(int64_t{mouseX} - dragStartX), diffY = saturate(int64_t{mouseY} - dragStartY);
        call<&UIWidget::onDrag>(*this, mouseX, mouseY, diffX, diffY);
    } else {
        isDragging = false;
        call<&UIWidget::onDragEnd>(*this, mouseX, mouseY);
    }
}

// The numbers go on as they are: a script's _pointInRect gets the ints or floats that isInside was called with.
bool UIWidget::isInside(PyObject* mouseX, PyObject* mouseY) {
    return Convert<bool>::from(callByName(self(), "_pointInRect"_name, mouseX, mouseY, x, y, width, height).raw());
}

// A number as a double, if Python's own sums and comparisons of such numbers come out the same.
static std::optional<double> plainNumber(PyObject* o) {
    if (PyFloat_CheckExact(o)) return PyFloat_AS_DOUBLE(o);
    int overflow;
    if (!PyLong_CheckExact(o)) return {};
    long long value = PyLong_AsLongLongAndOverflow(o, &overflow);
    if (overflow || value < INT_MIN || value > INT_MAX) return {};
    return static_cast<double>(value);
}

// Python's own numbers, of any kind and size.
bool UIWidget::pointInRect(
    PyObject* pointX, PyObject* pointY, PyObject* rectX, PyObject* rectY, PyObject* rectW, PyObject* rectH) {
    auto isInside = [](PyObject* point, PyObject* start, PyObject* length) {
        std::optional<double> p = plainNumber(point), from = plainNumber(start), by = plainNumber(length);
        if (p && from && by) return *p > *from && *p < *from + *by;
        if (!compare(point, Py_GT, start)) return false;
        return compare(point, Py_LT, Ref<>::steal(PyNumber_Add(start, length)).raw());
    };
    return isInside(pointX, rectX, rectW) && isInside(pointY, rectY, rectH);
}

void declareUIWidget(Module& module) {
    Class<UIWidget>("zelvarine.UIWidget", "UIWidget is the abstract base class for every UI control.")
        .init<&UIWidget::init>()
        .method<&UIWidget::setParent>("_setParent", {{"parent", Required{}, "AbstractUIContainer or None"}},
            "Called when the widget joins a container: it takes the container's renderer. With None it keeps the\n"
            "renderer that it has.")
        .method<&UIWidget::setMargin>("setMargin", {}, edgesDoc)
        .method<&UIWidget::handleClick>("_onClick", {{"event"}},
            "Called for every click on the user interface. An enabled widget under the mouse calls its `onClick`.\n"
            "@return(bool) whether the widget took the click")
        .method<&UIWidget::handleScroll>("_onScroll", {{"event"}},
            "Called for every step of the mouse wheel.\n@return(bool) whether the widget took the event, here False")
        .method<&UIWidget::getParent>("getParent", {},
            "The container that this widget was added to, or None.\n@return(AbstractUIContainer or None)")
        .method<&UIWidget::getRenderer>("getRenderer", {}, "The renderer that this widget is attached to, or None.")
        .method<&UIWidget::renderAs<UIWidget>>("render", clipParams,
            "Renders the widget. It should be overwritten by deriving classes in order to draw the widget's\n"
            "appearance on the render target. Call this base implementation first: it raises EngineException\n"
            "for a visible widget that is not connected to a UIRenderer.\n"
            "Nothing is to be drawn outside the clip rectangle; a negative value means that there is none.")
        .method<&UIWidget::updateAs<UIWidget>>("update", {{"mouseX"}, {"mouseY"}, {"isMouseLeftPressed"}},
            "Called once per frame, before `render`. It can be overwritten and can be used to update the\n"
            "widget's state. This base implementation tracks the mouse: it sets `isHovered` and calls\n"
            "`onDragStart`, `onDrag` and `onDragEnd`. The position is in pixels of the render target.")
        .method<&UIWidget::onDragStart>("onDragStart", {{"mouseX"}, {"mouseY"}},
            "Called when the left button is down over the widget and no drag is running; override it.")
        .method<&UIWidget::onDrag>("onDrag", {{"mouseX"}, {"mouseY"}, {"diffX"}, {"diffY"}},
            "Called in every frame of a drag, wherever the mouse is; override it. `diffX` and `diffY` tell how far\n"
            "the mouse is from where the drag began.")
        .method<&UIWidget::onDragEnd>("onDragEnd", {{"mouseX"}, {"mouseY"}},
            "Called when the button is released at the end of a drag; override it.")
        .method<&UIWidget::isInside>("isInside", {{"mouseX", Required{}, "float"}, {"mouseY", Required{}, "float"}},
            "Returns true if the given coordinates are inside the widget. Its edges are outside.")
        .method<&UIWidget::pointInRect>("_pointInRect",
            {{"pointX", Required{}, "float"}, {"pointY", Required{}, "float"}, {"rectX", Required{}, "float"},
                {"rectY", Required{}, "float"}, {"rectW", Required{}, "float"}, {"rectH", Required{}, "float"}},
            "Whether a point is inside a rectangle. The edges are outside.")
        .property<&UIWidget::sizePolicyX>(
            "sizePolicyX", "where the width comes from: SIZE_AUTO, SIZE_FIXED or SIZE_GROW")
        .property<&UIWidget::sizePolicyY>(
            "sizePolicyY", "where the height comes from: SIZE_AUTO, SIZE_FIXED or SIZE_GROW")
        .property<&UIWidget::width>("width", "width in pixels; set anew in each frame unless sizePolicyX is SIZE_FIXED")
        .property<&UIWidget::height>(
            "height", "height in pixels; set anew in each frame unless sizePolicyY is SIZE_FIXED")
        .property<&UIWidget::x>("_x", "left edge in the render target; a container sets it in each frame")
        .property<&UIWidget::y>("_y", "top edge in the render target; a container sets it in each frame")
        .property<&UIWidget::horizontalAlign>(
            "horizontalAlign", "ALIGN_LEFT, ALIGN_RIGHT or ALIGN_CENTER, for a vertical list")
        .property<&UIWidget::verticalAlign>(
            "verticalAlign", "VALIGN_TOP, VALIGN_BOTTOM or VALIGN_MIDDLE, for a horizontal list")
        .readonly<&UIWidget::isHovered>("isHovered", "whether the mouse was inside at the last update")
        .property<&UIWidget::onClick>("onClick", "called with the event of a click on the widget; a callable or None")
        .property<&UIWidget::marginLeft>("marginLeft", "room to the left in pixels")
        .property<&UIWidget::marginTop>("marginTop", "room above in pixels")
        .property<&UIWidget::marginRight>("marginRight", "room to the right in pixels")
        .property<&UIWidget::marginBottom>("marginBottom", "room below in pixels")
        .property<&UIWidget::isVisible>(
            "isVisible", "an invisible widget draws nothing, but keeps its room and takes clicks")
        .property<&UIWidget::isEnabled>("isEnabled", "a disabled widget takes no clicks")
        .property<&UIWidget::userData>("userData", "any object; free for the script")
        .addTo(module.raw());
}

}  // namespace zv
