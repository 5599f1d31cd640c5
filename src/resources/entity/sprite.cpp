#include "resources/entity/sprite.hpp"

namespace zv {

void Sprite::init(Ref<Texture> newTexture, int newXFrames, int newYFrames, Ref<List> spriteAnimations) {
    if (newXFrames == 0 || newYFrames == 0)
        raise(PyExc_ZeroDivisionError, "a sprite sheet needs at least one column and one row");
    if (newXFrames < 0 || newYFrames < 0)
        raise(PyExc_ValueError, "a sprite sheet cannot have %d columns and %d rows", newXFrames, newYFrames);
    texture = newTexture;
    xFrames = newXFrames;
    yFrames = newYFrames;
    width = newTexture->getWidth() / newXFrames;
    height = newTexture->getHeight() / newYFrames;
    Ref<Dict> byName = Ref<Dict>::steal(PyDict_New());
    animations = byName;
    forEach(spriteAnimations.raw(), [&](PyObject* animation) {
        Ref<Str> name = Convert<SpriteAnimation&>::from(animation).name;
        checked(PyDict_SetItem(byName.raw(), name.orNone(), animation));
    });
}

Ref<> Sprite::firstAnimation() const {
    Py_ssize_t position = 0;
    PyObject* animation;
    if (!PyDict_Next(animations.raw(), &position, nullptr, &animation)) {
        PyErr_SetNone(PyExc_StopIteration);
        throw PythonError{};
    }
    return Ref<>::borrow(animation);
}

void declareSprite(Module& module) {
    Class<SpriteAnimation>("zelvarine.SpriteAnimation",
        "Which frames of a sprite sheet an animation shows, and how.\n\n"
        "It has `frameCount` steps of `directions` adjacent frames each, from frame `startFrame` on; a step's\n"
        "frames show the sprite from all around. `speed` is the part of the whole animation that passes in a\n"
        "second; at the end it starts again or, with `oscillate`, runs back. With `directions` below 1 the\n"
        "sprite is always drawn as seen from its front.")
        .init<present(&SpriteAnimation::name), &SpriteAnimation::frameCount, &SpriteAnimation::oscillate,
            &SpriteAnimation::speed, &SpriteAnimation::startFrame, &SpriteAnimation::directions>(
            {{"name"}, {"frameCount"}, {"oscillate"}, {"speed"}, {"startFrame"}, {"directions"}})
        .addTo(module.raw());
    Class<Sprite>("zelvarine.Sprite", spriteDoc)
        .init<&Sprite::init>({{"texture"}, {"xFrames"}, {"yFrames"}, {"spriteAnimations"}})
        .readonly<&Sprite::texture>("texture",
            "the sheet, a Texture: columns and rows of equal frames, counted row by row. 0 of them raise\n"
            "ZeroDivisionError in the constructor, a negative number ValueError")
        .readonly<&Sprite::width>("width",
            "width of a frame in pixels, int. What is left over at the right of the sheet\n"
            "belongs to no frame")
        .readonly<&Sprite::height>("height",
            "height of a frame in pixels, int. What is left over at the bottom of the\n"
            "sheet belongs to no frame")
        .readonly<&Sprite::animations>("animations",
            "dict from name to SpriteAnimation, in the order given to the constructor; of animations with the same\n"
            "name the last one counts")
        .addTo(module.raw());
}

}  // namespace zv
