// The engine's one image type: 32-bit ARGB pixels in main memory.
#pragma once
#include "core/image.hpp"
#include "resources.hpp"
#include "sdl/handles.hpp"

namespace zv {

struct Texture : Resource {
    void init(PyObject* w, PyObject* h);
    int getWidth() const { return image().width; }
    int getHeight() const { return image().height; }
    std::tuple<int, int> getSize() const { return {getWidth(), getHeight()}; }
    void fill(PyObject* color);
    void fillChecker();
    void copyFrom(const Texture& other);
    void saveFile(Ref<Str> filename);

    // The pixels; they stay where they are as long as the texture lives.
    Image image() const { return pixelsOf(source()); }
    MutableImage mutableImage() const { return pixelsOf(surface()); }
    // What SDL draws from, and what it draws on or gives another mode of drawing.
    SDL_Surface* source() const;
    SDL_Surface* surface() const;
    // The number of what it looks like when it is drawn: another one after whatever may have changed that. 0 while
    // there is no image, and once a script may write to the pixels at any time.
    int64_t version() const { return pixels && !isExported ? lastChange : 0; }
    void markExported() { isExported = true; }
    // Takes over a 32-bit surface; its rows become exactly 4 * w bytes. Once in a texture's life.
    void adopt(SurfaceHandle newSurface);

private:
    SurfaceHandle pixels;
    mutable int64_t lastChange = 0;
    bool isExported = false;

    static MutableImage pixelsOf(SDL_Surface* s) { return {static_cast<uint32_t*>(s->pixels), s->w, s->h}; }
    void loadFile(PyObject* filename);
};

// A transparent surface in the pixel format of all textures.
SurfaceHandle createSurface(int w, int h);

// A texture of a surface that was made elsewhere (rendered text).
Ref<Texture> makeTexture(SurfaceHandle surface);

// A color of 3 or 4 integers, (r, g, b) or (r, g, b, a), as one pixel word.
uint32_t colorWord(PyObject* color);

void declareTexture(Module&);

}  // namespace zv
