// The base of all widgets: geometry, layout pass, hover and drag tracking, clicks.
#pragma once
#include "binding/items.hpp"
#include "events.hpp"
#include "gui/imprint.hpp"

namespace zv {

struct AbstractUIContainer;
struct UIRenderer;

enum SizePolicy : int { SIZE_AUTO, SIZE_FIXED, SIZE_GROW };
enum HorizontalAlign : int { ALIGN_LEFT, ALIGN_RIGHT, ALIGN_CENTER };
enum VerticalAlign : int { VALIGN_TOP, VALIGN_BOTTOM, VALIGN_MIDDLE };

// The clip of a render call as the caller gave it; anything negative means none.
struct Clip {
    Ref<> x = toPython(-1), y = toPython(-1), width = toPython(-1), height = toPython(-1);

    // Whether reading it runs no script.
    bool isPlain() const {
        return PyLong_CheckExact(x.orNone()) && PyLong_CheckExact(y.orNone()) && PyLong_CheckExact(width.orNone()) &&
            PyLong_CheckExact(height.orNone());
    }
    static Clip of(const SDL_Rect& r) { return {toPython(r.x), toPython(r.y), toPython(r.w), toPython(r.h)}; }
};

// How every render method declares its parameters.
inline const std::vector<Param> clipParams{
    {"clipX", -1, "int"}, {"clipY", -1, "int"}, {"clipWidth", -1, "int"}, {"clipHeight", -1, "int"}};

// All numbers are pixels of the render target, positions absolute there.
struct UIWidget : Object {
    Ref<UIWidget> parent;  // the container that holds the widget
    Ref<UIRenderer> renderer;
    int sizePolicyX = SIZE_AUTO, sizePolicyY = SIZE_AUTO;
    int width = 0, height = 0;
    int x = 0, y = 0;
    int horizontalAlign = ALIGN_LEFT, verticalAlign = VALIGN_TOP;
    bool isHovered = false;
    Ref<> onClick;
    int marginLeft = 0, marginTop = 0, marginRight = 0, marginBottom = 0;
    bool isVisible = true, isEnabled = true;
    bool isDragging = false;
    int dragStartX = 0, dragStartY = 0;
    Ref<> userData;
    Imprint imprint;  // of what the widget draws, where that may last

    void eachRef(RefVisitor& visit) override {
        visit(parent);
        visit(renderer);
        visit(onClick);
        visit(userData);
    }

    // The operations of the layout pass and of drawing that scripts cannot reach.
    virtual void setRenderer(const Ref<UIRenderer>& newRenderer);
    virtual void calculateMinSize();
    virtual void calculateMaxSize();
    virtual void calculatePos() {}
    virtual SDL_Rect getClippedRect(const Clip& clip);
    // The room that a container offers to its children.
    virtual SDL_Point innerSize() const { return {0, 0}; }
    // What update() and render() are in this class. Others call those two, and a script's override takes effect.
    virtual void doUpdate(int mouseX, int mouseY, bool isMouseLeftPressed);
    virtual void doRender(const Clip& clip);

    void init() {}
    void setParent(Ref<AbstractUIContainer> newParent);
    void setMargin(Args values);
    bool handleClick(MouseClickEvent* event);
    bool handleScroll(MouseWheelEvent*) { return false; }
    Ref<UIWidget> getParent() const { return parent; }
    Ref<UIRenderer> getRenderer() const { return renderer; }
    void update(int mouseX, int mouseY, bool isMouseLeftPressed);
    void render(const Clip& clip);
    // The methods as Python finds them in the class T: they do what that very class does, for the sake of super().
    template <class T> void updateAs(int mouseX, int mouseY, bool isMouseLeftPressed) {
        static_cast<T*>(this)->T::doUpdate(mouseX, mouseY, isMouseLeftPressed);
    }
    template <class T> void renderAs(Ref<> clipX, Ref<> clipY, Ref<> clipWidth, Ref<> clipHeight) {
        static_cast<T*>(this)->T::doRender({clipX, clipY, clipWidth, clipHeight});
    }
    void onDragStart(int, int) {}
    void onDrag(int, int, int, int) {}
    void onDragEnd(int, int) {}
    bool isInside(PyObject* mouseX, PyObject* mouseY);
    bool pointInRect(
        PyObject* pointX, PyObject* pointY, PyObject* rectX, PyObject* rectY, PyObject* rectW, PyObject* rectH);

    SDL_Rect rect() const { return {x, y, width, height}; }
    // Asks isInside() of a script's subclass as well.
    bool isUnder(int mouseX, int mouseY);
    // The attribute as a script sees it; a subclass may have made it its own.
    bool hovered();

protected:
    // Drawing needs a renderer; raises EngineException without one.
    void requireRenderer();
    // How every widget begins to draw: what it draws on, or nothing if it is not to be seen.
    std::optional<Canvas> beginRender(const Clip& clip);
    // A piece of the theme, by the keys on the way to it.
    template <class... Keys> Ref<> piece(Keys&... keys) const { return item(pieces().raw(), keys...); }
    // The same where no script has a say in it, else nothing.
    template <class... Keys> Ref<> plainPiece(Keys&... keys) const {
        Ref<> table = plainPieces();
        ((table = plainItem(table, keys)), ...);
        return table;
    }
    // The picture that holds the pieces.
    Ref<Texture> tileset() const;
    // The look of what is drawn with it, for more to be added.
    Look tilesetLook() const;
    // Lets the engine fire an event; without one nothing happens.
    void fireEvent(const Ref<>& event) const;

private:
    Ref<> pieces() const;
    Ref<> plainPieces() const;
};

// Spreads 1 to 4 values over the edges of a box, in the order of the CSS shorthand.
void assignEdges(const char* method, Args values, int& top, int& right, int& bottom, int& left);
inline constexpr const char* edgesDoc =
    "Sets all four edges, in the order of the CSS shorthand: all; top and bottom, left and right; top, left\n"
    "and right, bottom; or top, right, bottom, left. Raises ValueError for any other count of values.";

void declareUIWidget(Module&);

}  // namespace zv
