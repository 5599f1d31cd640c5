#include "ui/image.hpp"

#include <algorithm>

namespace zv {

void UIImage::init(Ref<Texture> newTexture, PyObject* newWidth, PyObject* newHeight) {
    texture = std::move(newTexture);
    sizePolicyX = sizePolicyY = SIZE_FIXED;
    setSize(newWidth, newHeight);
    alpha = 255;
}

void UIImage::setTexture(Ref<Texture> newTexture) {
    texture = std::move(newTexture);
    setSize(nullptr, nullptr);
}

void UIImage::setSize(PyObject* newWidth, PyObject* newHeight) {
    auto sizeOf = [this](PyObject* given, Name& name) {
        bool isGiven = given && given != Py_None;
        return Convert<int>::from(isGiven ? given : getAttribute(texture.raw(), name).raw());
    };
    width = sizeOf(newWidth, "width"_name);
    height = sizeOf(newHeight, "height"_name);
}

void UIImage::setAlpha(int newAlpha) { alpha = std::clamp(newAlpha, 0, 255); }

void UIImage::doRender(const Clip& clip) {
    std::optional<Canvas> canvas = beginRender(clip);
    if (!canvas || !texture) return;
    canvas->cut();
    SDL_Surface* picture = texture->surface();
    SDL_SetSurfaceAlphaMod(picture, static_cast<Uint8>(alpha));  // stays with the texture, for whoever shares it
    canvas->blitScaled(texture, {0, 0, picture->w, picture->h}, rect());
    canvas->uncut();
}

void declareUIImage(Module& module) {
    Class<UIImage, UIWidget>("zelvarine.UIImage", "A UIImage can be used to display images.")
        .init<&UIImage::init>({{"texture"}, {"width", None{}, "int or None"}, {"height", None{}, "int or None"}})
        .method<&UIWidget::renderAs<UIImage>>("render", clipParams,
            "Renders the picture, stretched to fill the widget; nothing without a texture. Its opacity stays set on\n"
            "the texture, for others who draw it.")
        .property<&UIImage::getTexture, &UIImage::setTexture>(
            "texture", "the picture; assigning one gives the widget its size")
        .property<&UIImage::getAlpha, &UIImage::setAlpha>("alpha", "opacity from 0 to 255; other values are clamped")
        .addTo(module.raw());
}

}  // namespace zv
