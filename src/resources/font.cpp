#include "resources/font.hpp"

#include "binding/items.hpp"
#include "resources/color.hpp"
#include "sdl/error.hpp"
#include "sdl/text.hpp"

#include <algorithm>

namespace zv {

void Font::init(Ref<> newFilename, PyObject* newSize) {
    Utf8 path(newFilename.raw());
    Resource::init(newFilename);
    size = Convert<int>::from(newSize);
    static int64_t faces = 0;
    if (font) face = ++faces;
    // SDL_ttf counts in 64ths of a point; a size that it cannot count in them is none that it can open.
    std::unique_ptr<TTF_Font, FontRelease> opened(TTF_OpenFont(path, std::clamp(size, 0, INT_MAX / 64)));
    if (!opened) {
        Ref<> reason = Ref<>::steal(PyBytes_FromString(SDL_GetError()));
        raise(PyExc_IOError, "Unable to load font file '%S': %R", newFilename.raw(), reason.raw());
    }
    font = std::move(opened);
    face = ++faces;
}

TTF_Font* Font::openFont() const {
    if (!font) raise(PyExc_RuntimeError, "the font is not open: its constructor did not finish");
    return font.get();
}

static std::tuple<int, int> sizeOf(TTF_Font* font, const char* text) {
    int width, height;
    if (TTF_SizeUTF8(font, text, &width, &height) < 0) raiseSdl("Could not measure the text.");
    return {width, height};
}

SDL_Color textColor(PyObject* color) {
    auto [r, g, b, a] =
        channelsOf<uint8_t>(color, PyExc_UnboundLocalError, "local variable 'r' referenced before assignment");
    return {r, g, b, a};
}

SurfaceHandle Font::rendered(PyObject* text, SDL_Color color) const {
    Utf8 bytes(text);
    SurfaceHandle surface(TTF_RenderUTF8_Blended(openFont(), bytes, color));
    if (surface) return surface;
    auto [width, height] = sizeOf(openFont(), bytes);
    if (width != 0) raiseSdl("Could not render the text.");
    return createSurface(0, height);
}

std::tuple<int, int> Font::getRenderedTextSize(PyObject* text) const {
    Utf8 bytes(text);
    return sizeOf(openFont(), bytes);
}

Ref<Texture> Font::render(PyObject* text, PyObject* color) const {
    SDL_Color channels = textColor(color);
    return makeTexture(rendered(text, channels));
}

Ref<Texture> Font::renderLines(PyObject* lines, PyObject* color) const { return renderPage(lines, textColor(color)); }

Ref<Texture> Font::renderPage(PyObject* lines, SDL_Color color) const {
    std::vector<SurfaceHandle> surfaces;  // none for an empty line
    surfaces.reserve(static_cast<size_t>(lengthOf(lines)));
    int width = 0;
    int64_t height = 0;
    Ref<> empty = toPython(std::string_view(""));
    forEach(lines, [&](PyObject* line) {
        bool isEmpty = equal(line, empty.raw());
        SurfaceHandle surface = isEmpty ? nullptr : rendered(line, color);
        width = std::max(width, surface ? surface->w : 0);
        height += surface ? surface->h : size;
        surfaces.push_back(std::move(surface));
    });
    SurfaceHandle page = createSurface(width, Convert<int>::from(toPython(height).raw()));
    int64_t y = 0;
    for (SurfaceHandle& surface : surfaces) {
        SDL_Rect place{0, static_cast<int>(y), 0, 0};
        if (surface) SDL_UpperBlit(surface.get(), nullptr, page.get(), &place);
        y += surface ? surface->h : size;
        surface.reset();  // at once: SDL finds it in a list of all that were drawn onto the page
    }
    return makeTexture(std::move(page));
}

void declareFont(Module& module) {
    static const Param color{"color", Required{}, "(r, g, b) or (r, g, b, a)"}, text{"text", Required{}, "str"};
    Class<Font, Resource>("zelvarine.Font", "A font resource. Fonts can be loaded from TTF files.")
        .init<&Font::init>({{"filename"}, {"size", Required{}, "int"}})
        .readonly<&Font::getFontSize>("size", "size in points, int")
        .method<&Font::getFontSize>("getFontSize", {}, "The size in points.")
        .method<&Font::getRenderedTextSize>("getRenderedTextSize", {text},
            "Width and height in pixels that `render` gives this text. A line break is a character like any other.")
        .method<&Font::render>("render", {text, color},
            "A new texture with one line of text, anti-aliased on transparency. Text of no width, like an empty\n"
            "one, gives a texture of width 0.\n\n"
            "The color is opaque without alpha, and with an alpha of 0. A component outside 0 to 255 raises\n"
            "OverflowError, a text that cannot be rendered EngineSdlException.\n@return(Texture)")
        .method<&Font::renderLines>("renderLines", {{"lines", Required{}, "sequence of str"}, color},
            "A new texture with the lines one below the other, left-aligned. An empty line is as high as the\n"
            "size of the font. Colors and errors are those of `render`.\n@return(Texture)")
        .addTo(module.raw());
}

}  // namespace zv
