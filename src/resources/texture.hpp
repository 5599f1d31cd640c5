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
    MutableImage mutableImage() { return pixelsOf(surface()); }
    // The pixels, for others to write to at any time.
    MutableImage exportedImage();
    // What SDL draws from; and what it draws on, or gets another way of drawing.
    SDL_Surface* source() const;
    SDL_Surface* surface();
    // The number of how it looks when it is drawn: another one, also than any other texture's, after whatever may have
    // changed that. 0 while there is no image, and for good once others may write to it at any time.
    int64_t version() const { return pixels && !isExported ? lastChange : 0; }
    // Takes over a 32-bit surface; its rows become exactly 4 * w bytes. Once in a texture's life.
    void adopt(SurfaceHandle newSurface);

private:
    SurfaceHandle pixels;
    int64_t lastChange = 0;
    bool isExported = false;

    void markChanged();
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
