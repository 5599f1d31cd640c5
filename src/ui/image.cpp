#include "ui/image.hpp"

#include "gui/uirenderer.hpp"

#include <algorithm>

namespace zv {

void UIImage::show(Ref<Texture> newTexture, PyObject* newWidth, PyObject* newHeight) {
    auto sizeOf = [&](PyObject* given, Name& name) {
        return Convert<int>::from(given == Py_None ? getAttribute(newTexture.raw(), name).raw() : given);
    };
    int w = sizeOf(newWidth, "width"_name), h = sizeOf(newHeight, "height"_name);
    texture = std::move(newTexture);
    width = w;
    height = h;
}

void UIImage::init(Ref<Texture> newTexture, PyObject* newWidth, PyObject* newHeight) {
    show(std::move(newTexture), newWidth ? newWidth : Py_None, newHeight ? newHeight : Py_None);
    sizePolicyX = sizePolicyY = SIZE_FIXED;
    alpha = 255;
}

void UIImage::setAlpha(int newAlpha) { alpha = std::clamp(newAlpha, 0, 255); }

void UIImage::render(Ref<> clipX, Ref<> clipY, Ref<> clipWidth, Ref<> clipHeight) {
    if (!isVisible) return;
    SDL_Rect clip = getClippedRect({clipX, clipY, clipWidth, clipHeight});
    if (clip.w <= 0 || clip.h <= 0) return;
    requireRenderer();
    if (!texture) return;
    SDL_Surface* picture = texture->surface();
    SDL_SetSurfaceAlphaMod(picture, static_cast<Uint8>(alpha));  // stays with the texture, for whoever shares it
    blitScaled(picture, {0, 0, picture->w, picture->h}, renderer->canvas(clip), rect());
}

void declareUIImage(Module& module) {
    Class<UIImage, UIWidget>("zelvarine.UIImage",
        "A UIImage can be used to display images.\n\n"
        "Its size is fixed: the given width and height, or those of the texture. The picture is stretched to\n"
        "fill the widget. Without a texture nothing is drawn.")
        .init<&UIImage::init>({{"texture"}, {"width", None{}, "int or None"}, {"height", None{}, "int or None"}})
        .method<&UIImage::render>(
            "render", clipParams, "Renders the picture. Its opacity stays set on the texture, for others who draw it.")
        .property<&UIImage::getTexture, &UIImage::setTexture>(
            "texture", "the picture; assigning one gives the widget its size")
        .property<&UIImage::getAlpha, &UIImage::setAlpha>("alpha", "opacity from 0 to 255; other values are clamped")
        .addTo(module.raw());
}

}  // namespace zv
