#include "gui/uirenderer.hpp"

namespace zv {

struct UIAnchoredContainer;

void UIRenderer::init(Ref<Texture> newTarget, int newFillBackground, Ref<UITheme> newTheme) {
    PyObject* noComponentType = Py_None;  // which no entity has
    Renderer::init(std::move(newTarget), Args{&noComponentType, 1});
    fillBackground = newFillBackground != 0;
    theme = std::move(newTheme);
    widget = Convert<Ref<UIWidget>>::from(callFunction(classOf<UIAnchoredContainer>()).raw());
    widget->renderer = Ref<UIRenderer>::to(*this);
}

void UIRenderer::setWidget(PyObject* newWidget) {
    if (newWidget == Py_None) raise(PyExc_TypeError, "the root widget must be a UIWidget, not None");
    if (Ref<UIWidget> old = widget) old->setRenderer({});
    widget = Convert<Ref<UIWidget>>::from(newWidget);
    Ref<UIWidget>(widget)->setRenderer(Ref<UIRenderer>::to(*this));
}

Ref<> UIRenderer::getSize() const { return callByName(target.raw(), "getSize"_name); }

void UIRenderer::render() {
    if (fillBackground) {
        Ref<> color = callByName(theme.raw(), "getIntColor"_name, std::string_view("background"));
        uint32_t word = Convert<uint32_t>::from(color.raw());
        SDL_FillRect(target->surface(), nullptr, word);
    }
    Ref<> held = toPython(engine);
    auto [mouseX, mouseY] = Convert<std::tuple<int, int>>::from(callByName(held.raw(), "getMousePos"_name).raw());
    bool isMouseLeftPressed =
        Convert<bool>::from(callByName(held.raw(), "isMouseButtonPressed"_name, SDL_BUTTON_LEFT).raw());
    // Each step takes the root that is there by then: a handler may have replaced it.
    Ref<UIWidget>(widget)->calculateMinSize();
    Ref<UIWidget>(widget)->calculateMaxSize();
    Ref<UIWidget>(widget)->calculatePos();
    Ref<UIWidget>(widget)->update(mouseX, mouseY, isMouseLeftPressed);
    Ref<UIWidget> root = widget;  // that of a script is called without a clip
    if (isNative(*root)) root->doRender({});
    else callByName(root.raw(), "render"_name);
}

void UIRenderer::setEngine(Ref<Engine> newEngine) {
    auto forBoth = [&](PyObject* someEngine, Name& method) {
        callByName(someEngine, method, classOf<MouseClickEvent>(), getAttribute(self(), "_onClick"_name));
        callByName(someEngine, method, classOf<MouseWheelEvent>(), getAttribute(self(), "_onScroll"_name));
    };
    Ref<> oldEngine = callByName(self(), "getEngine"_name);
    if (oldEngine.raw() != Py_None) forBoth(oldEngine.raw(), "unsubscribeEvent"_name);
    AbstractSystem::setEngine(newEngine);
    if (newEngine) forBoth(newEngine.raw(), "subscribeEvent"_name);
}

void UIRenderer::handleClick(MouseClickEvent* event) {
    Ref<> taken = callByName(Ref<UIWidget>(widget).raw(), "_onClick"_name, event);
    setAttribute(event ? event->self() : nullptr, "isAlreadyHandled"_name, taken.raw());
}

void UIRenderer::handleScroll(MouseWheelEvent* event) {
    Ref<> taken = callByName(Ref<UIWidget>(widget).raw(), "_onScroll"_name, event);
    setAttribute(event ? event->self() : nullptr, "isAlreadyHandled"_name, taken.raw());
}

void declareUIRenderer(Module& module) {
    Class<UIRenderer, Renderer>("zelvarine.UIRenderer", "A UI render renders UI elements like text and buttons.")
        .init<&UIRenderer::init>({{"target"}, {"fillBackground", Required{}, "bool"}, {"theme"}})
        .property<&UIRenderer::getWidget, &UIRenderer::setWidget>(
            "widget", "root of the widget tree, a UIAnchoredContainer at first; assigning attaches the whole new tree")
        .readonly<&UIRenderer::theme>("theme", "the UITheme of all widgets of this renderer, or None")
        .method<&UIRenderer::getSize>(
            "getSize", {}, "Returns the size of the render target\n@return((int, int)) width and height in pixels")
        .method<&UIRenderer::render>("render", {},
            "Renders a single frame onto the render target\n"
            "It lays the tree of widgets out, updates it with the mouse of the engine and draws it, over the color\n"
            "\"background\" of the theme if `fillBackground` is set.")
        .method<&UIRenderer::setEngine>("_setEngine", {{"engine", Required{}, "Engine or None"}},
            "Called when the renderer joins or, with None, leaves an engine: clicks and wheel steps of that engine\n"
            "go to the widgets.")
        .method<&UIRenderer::handleClick>("_onClick", {{"event"}},
            "Hands a click to the root widget; `event.isAlreadyHandled` then tells whether a widget took it.")
        .method<&UIRenderer::handleScroll>("_onScroll", {{"event"}},
            "Hands a wheel step to the root widget; `event.isAlreadyHandled` then tells whether a widget took it.")
        .addTo(module.raw());
}

}  // namespace zv
