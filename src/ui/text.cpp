#include "ui/text.hpp"

#include "gui/geometry.hpp"
#include "gui/uirenderer.hpp"

namespace zv {

static Name& fontName = "aileron"_name;

void UIText::init(PyObject* newText, Ref<> newColor) {
    setTextByName(newText);
    color = std::move(newColor);
}

void UIText::setText(PyObject* newText) {
    Ref<Str> given = Ref<Str>::borrow(checkType<Str>(newText));
    lines = Ref<List>::steal(PyUnicode_Splitlines(newText, 0));
    text = std::move(given);
    size.face = picture.face = 0;
}

Ref<> UIText::getTextByName() const { return callByName(self(), "getText"_name); }
void UIText::setTextByName(PyObject* newText) { callByName(self(), "setText"_name, newText); }

// Fetched anew at each use; any object that a script's theme hands out as a font.
Ref<> UIText::font() const {
    Ref<UITheme> theme = renderer->theme;
    Ref<Str> name = Ref<Str>::borrow(fontName.get());
    if (theme && isNative(*theme)) return toPython(theme->getFont(name));
    return callByName(theme.raw(), "getFont"_name, name);
}

// The number of an open font that measures and renders without any script's doing, else 0.
static int64_t faceOf(const Ref<>& font) {
    return Py_TYPE(font.raw()) == &typeOf<Font> ? native<Font>(font.raw())->face : 0;
}

void UIText::setRenderer(const Ref<UIRenderer>& newRenderer) {
    UIWidget::setRenderer(newRenderer);
    if (newRenderer && !color)
        color = callByName(newRenderer->theme.raw(), "getColor"_name, std::string_view("fontColor"));
}

// Widths are summed like heights: text of several lines is measured as wide as all of them together.
static std::tuple<int, int> measure(const Ref<>& font, const Ref<List>& lines, bool emptyLinesBySize) {
    int64_t width = 0, height = 0;
    forEach(Ref<List>(lines).raw(), [&](PyObject* line) {
        if (emptyLinesBySize && PyUnicode_Check(line) && PyUnicode_GET_LENGTH(line) == 0) {
            height += Convert<int>::from(getAttribute(font.raw(), "size"_name).raw());
            return;
        }
        Ref<> measured = callByName(font.raw(), "getRenderedTextSize"_name, line);
        auto [lineWidth, lineHeight] = Convert<std::tuple<int, int>>::from(measured.raw());
        width += lineWidth;
        height += lineHeight;
    });
    return {saturate(width), saturate(height)};
}

void UIText::calculateMinSize() {
    if (!renderer) return;
    Ref<> used = font();
    int64_t face = faceOf(used);
    if (face == 0 || face != size.face) {
        std::tie(size.width, size.height) = measure(used, lines, false);
        size.face = face;
    }
    if (sizePolicyX != SIZE_FIXED) width = size.width;
    if (sizePolicyY != SIZE_FIXED) height = size.height;
}

std::tuple<int, int> UIText::getRenderedTextSize() const {
    if (!renderer) return {0, 0};
    return measure(font(), lines, true);
}

// Whether a color is what it is for good.
static bool isPlainColor(PyObject* color) {
    if (!PyTuple_CheckExact(color)) return false;
    for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(color); i++)
        if (!PyLong_CheckExact(PyTuple_GET_ITEM(color, i))) return false;
    return true;
}

Ref<Texture> UIText::shownPage() const {
    Ref<UITheme> theme = renderer->theme;
    Ref<> font = theme && isNative(*theme) ? plainItem(theme->fonts, fontName) : Ref<>();
    int64_t face = font ? faceOf(font) : 0;
    bool isShown = face != 0 && face == picture.face && picture.tuple && picture.tuple.raw() == color.raw();
    return isShown ? picture.texture : Ref<Texture>();
}

Ref<Texture> UIText::rendered() {
    Ref<> used = font();
    Ref<> shownColor = color;
    Ref<List> shownLines = lines;
    int64_t face = faceOf(used);
    if (face == 0) {
        size.face = picture.face = 0;  // a script's font gets hold of the lines, and may change them
        return Convert<Ref<Texture>>::from(callByName(used.raw(), "renderLines"_name, shownLines, shownColor).raw());
    }
    if (face == picture.face && picture.tuple && picture.tuple.raw() == shownColor.raw()) return picture.texture;
    SDL_Color channels = textColor(shownColor.orNone());
    // A script's color may set another text while it is read.
    if (lines.raw() != shownLines.raw()) return native<Font>(used.raw())->renderPage(shownLines.orNone(), channels);
    SDL_Color& known = picture.color;
    if (face != picture.face || channels.r != known.r || channels.g != known.g || channels.b != known.b ||
        channels.a != known.a) {
        picture.texture = native<Font>(used.raw())->renderPage(shownLines.orNone(), channels);
        picture.face = face;
        known = channels;
    }
    picture.tuple = isPlainColor(shownColor.orNone()) ? Ref<Tuple>::borrow(shownColor.raw()) : Ref<Tuple>();
    return picture.texture;
}

void UIText::doRender(const Clip& clip) {
    std::optional<Canvas> canvas = beginRender(clip);
    if (!canvas) return;
    Ref<Texture> shown = rendered();
    canvas->cut();
    canvas->blit(shown, {0, 0, shown->getWidth(), shown->getHeight()}, x, y);
    canvas->uncut();
}

void declareUIText(Module& module) {
    Class<UIText, UIWidget>("zelvarine.UIText",
        "A UIText can be used to display text.\n\n"
        "Its font is the one that the theme calls \"aileron\", its color, unless given, \"fontColor\"; KeyError if\n"
        "the theme lacks them: the color when the text is attached to a renderer, the font in the next frame.")
        .init<&UIText::init>({{"text", Required{}, "str"}, {"color", None{}, "(r, g, b) or (r, g, b, a) or None"}})
        .method<&UIText::setText>("setText", {{"text", Required{}, "str"}},
            "Replaces the text. Line breaks begin new lines. Raises TypeError for anything but a str.")
        .method<&UIText::getText>("getText", {}, "The text.\n@return(str)")
        .method<&UIText::getRenderedTextSize>("getRenderedTextSize", {},
            "Determines the size which is required for the text.\n"
            "Note that this only works if the widget is appended to a renderer.\n"
            "The widths of several lines are summed. Without a renderer the size is (0, 0).")
        .method<&UIWidget::renderAs<UIText>>(
            "render", clipParams, "Renders the text, cut off at the edges of the widget.")
        .property<&UIText::getTextByName, &UIText::setTextByName>("text", "the text; the same as getText and setText")
        .property<&UIText::color>(
            "color", "color of the text, (r, g, b) or (r, g, b, a); None takes that of the theme when attached")
        .addTo(module.raw());
}

}  // namespace zv
