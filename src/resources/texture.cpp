#include "resources/texture.hpp"

#include "resources/color.hpp"
#include "sdl/error.hpp"
#include "sdl/imagefile.hpp"
#include "sdl/text.hpp"

#include <SDL_image.h>

namespace zv {

static constexpr Uint32 redMask = 0x00FF0000, greenMask = 0x0000FF00, blueMask = 0x000000FF, alphaMask = 0xFF000000;

static bool isExactly(PyObject* o, PyTypeObject* type) { return o && Py_TYPE(o) == type; }

SurfaceHandle createSurface(int w, int h) {
    if (w < 0 || h < 0) raise(PyExc_ValueError, "the size of a texture must not be negative, got %d by %d", w, h);
    // SDL writes to all of the memory at once: what the machine does not have would end the process.
    if (int64_t{w} * h > INT_MAX / 4) raise(PyExc_ValueError, "a texture of %d by %d pixels is too large", w, h);
    SurfaceHandle surface(SDL_CreateRGBSurface(0, w, h, 32, redMask, greenMask, blueMask, alphaMask));
    if (!surface) raiseSdl("Could not create the texture.");
    return surface;
}

void Texture::init(PyObject* w, PyObject* h) {
    if (isExactly(w, &PyLong_Type) && isExactly(h, &PyLong_Type)) {
        Resource::init(toPython(""));
        adopt(createSurface(Convert<int>::from(w), Convert<int>::from(h)));
    } else if (isExactly(w, &typeOf<Texture>)) {
        Resource::init(toPython(""));
        const Texture& source = *native<Texture>(w);
        adopt(createSurface(source.getWidth(), source.getHeight()));
        callByName(self(), "copyFrom"_name, w);
    } else {
        loadFile(w);
    }
}

void Texture::loadFile(PyObject* name) {
    Utf8 path(name);
    Resource::init(Ref<>::borrow(name));
    SurfaceHandle loaded = loadImage(path);
    SurfaceHandle converted;
    if (loaded) converted.reset(SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_ARGB8888, 0));
    if (!converted) raise(PyExc_IOError, "Unable to load image file '%S'", name);
    adopt(std::move(converted));
}

void Texture::adopt(SurfaceHandle newSurface) {
    if (pixels) raise(PyExc_RuntimeError, "a texture gets its image once; create another Texture instead");
    if (newSurface->pitch != newSurface->w * 4) {
        SurfaceHandle packed = createSurface(newSurface->w, newSurface->h);
        for (int y = 0; y < packed->h; y++)
            SDL_memcpy(static_cast<char*>(packed->pixels) + static_cast<ptrdiff_t>(y) * packed->pitch,
                static_cast<const char*>(newSurface->pixels) + static_cast<ptrdiff_t>(y) * newSurface->pitch,
                static_cast<size_t>(packed->pitch));
        newSurface = std::move(packed);
    }
    pixels = std::move(newSurface);
    markChanged();
}

Ref<Texture> makeTexture(SurfaceHandle surface) {
    Ref<Texture> texture = make<Texture>();  // empty, to take over the surface
    texture->Resource::init(toPython(""));
    texture->adopt(std::move(surface));
    return texture;
}

SDL_Surface* Texture::source() const {
    if (!pixels) raise(PyExc_RuntimeError, "the texture has no image: its constructor did not finish");
    return pixels.get();
}

SDL_Surface* Texture::surface() {
    markChanged();
    return source();
}

void Texture::markChanged() {
    static int64_t changes = 0;
    lastChange = ++changes;
}

MutableImage Texture::exportedImage() {
    isExported = true;
    return mutableImage();
}

uint32_t colorWord(PyObject* color) {
    auto [r, g, b, a] = channelsOf<uint32_t>(
        color, PyExc_TypeError, "color must be a tuple of 3 (rgb) or 4 (rgba) integers between 0 and 255");
    return r << 16 | g << 8 | b | a << 24;
}

void Texture::fill(PyObject* color) {
    uint32_t word = colorWord(color);
    SDL_FillRect(surface(), nullptr, word);
}

void Texture::fillChecker() {
    SDL_Surface* s = surface();
    SDL_FillRect(s, nullptr, 0xFFAAAAAA);
    int halfWidth = s->w / 2, halfHeight = s->h / 2;
    SDL_Rect upperLeft{0, 0, halfWidth, halfHeight}, lowerRight{halfWidth, halfHeight, halfWidth, halfHeight};
    SDL_FillRect(s, &upperLeft, 0xFF333333);
    SDL_FillRect(s, &lowerRight, 0xFF333333);
}

void Texture::copyFrom(const Texture& other) { SDL_UpperBlit(other.source(), nullptr, surface(), nullptr); }

void Texture::saveFile(Ref<Str> filename) { IMG_SavePNG(source(), Utf8(filename.orNone())); }

// The buffer is the pixels themselves; the exporter, and with it the surface, lives as long as the view.
static int exportPixels(PyObject* self, Py_buffer* view, int flags) noexcept {
    view->obj = nullptr;
    return guarded(-1, [&] {
        MutableImage image = native<Texture>(self)->exportedImage();
        if ((flags & PyBUF_F_CONTIGUOUS) == PyBUF_F_CONTIGUOUS)
            raise(PyExc_BufferError, "the rows of a texture lie one after the other");
        static uint32_t nothing;
        static char format[] = "I";
        auto* shape = new Py_ssize_t[4]{image.height, image.width, image.width * Py_ssize_t{4}, 4};
        view->buf = image.pixels ? image.pixels : &nothing;
        view->len = shape[0] * shape[2];
        view->readonly = 0;
        view->itemsize = 4;
        view->format = flags & PyBUF_FORMAT ? format : nullptr;
        view->ndim = flags & PyBUF_ND ? 2 : 1;  // without a shape it is plain bytes
        view->shape = flags & PyBUF_ND ? shape : nullptr;
        view->strides = (flags & PyBUF_STRIDES) == PyBUF_STRIDES ? shape + 2 : nullptr;
        view->suboffsets = nullptr;
        view->internal = shape;
        view->obj = Ref<>::borrow(self).release();
        return 0;
    });
}
static void releasePixels(PyObject*, Py_buffer* view) noexcept { delete[] static_cast<Py_ssize_t*>(view->internal); }

void declareTexture(Module& module) {
    static PyBufferProcs pixelBuffer{exportPixels, releasePixels};
    Class<Texture, Resource>("zelvarine.Texture",
        "A software image of 32-bit pixels 0xAARRGGBB.\n\n"
        "Texture(w, h) with two ints is an empty image, transparent black. Texture(texture) copies an image,\n"
        "blending it onto transparent black. Texture(filename) loads an image file; IOError if that fails.\n"
        "A negative size, or one of more than 2 GiB, raises ValueError; one that memory does not hold\n"
        "EngineSdlException.\n\n"
        "The pixels are open to scripts through the buffer protocol: memoryview(texture) and\n"
        "numpy.asarray(texture) are writable views of shape (height, width), one unsigned 32-bit word a\n"
        "pixel, without a copy.")
        .init<&Texture::init>({{"w"}, {"h", None{}}})
        .buffer(pixelBuffer)
        .readonly<&Texture::getWidth>("width", "width in pixels, int")
        .readonly<&Texture::getHeight>("height", "height in pixels, int")
        .method<&Texture::getSize>("getSize", {}, "Width and height in pixels.")
        .method<&Texture::fill>("fill", {{"color", Required{}, "(r, g, b) or (r, g, b, a)"}},
            "Overwrites every pixel; without alpha the color is opaque.\n"
            "Raises TypeError unless there are 3 or 4 integers, OverflowError for a negative one. A component\n"
            "above 255 runs into its neighbour.")
        .method<&Texture::fillChecker>(
            "fillChecker", {}, "Paints a checker of two by two fields, the look of a missing image.")
        .method<&Texture::copyFrom>("copyFrom", {{"other"}},
            "Blits the whole of `other` with its top left corner onto this one's: opaque pixels overwrite,\n"
            "translucent ones blend.")
        .method<&Texture::saveFile>("saveFile", {{"filename", Required{}, "str"}},
            "Writes the image as a PNG file; the name should end with '.png'. A failed write, as into a folder that\n"
            "does not exist, raises nothing.")
        .addTo(module.raw());
}

}  // namespace zv
