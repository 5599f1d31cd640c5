#include "resources/entity/spritecomponent.hpp"

#include "binding/items.hpp"

namespace zv {

static uint32_t blendModeOf(PyObject* word) {
    return PyUnicode_Check(word) && PyUnicode_CompareWithASCIIString(word, "add") == 0 ? blendAdd : blendAlpha;
}

void SpriteComponent::init(
    Ref<Sprite> newSprite, bool newShadeless, double newZOffset, double newScale, uint32_t newBlendMode) {
    sprite = newSprite;
    shadeless = newShadeless;
    zOffset = newZOffset;
    scale = newScale;
    blendMode = newBlendMode;
    angleToCam = 0;
    if (newSprite) play(newSprite->firstAnimation());
}

void SpriteComponent::setBlendMode(PyObject* mode) { blendMode = blendModeOf(mode); }

// Through the property, so that a script's own one hears of it.
void SpriteComponent::play(const Ref<>& animation) { setAttribute(self(), "currentAnimation"_name, animation.raw()); }

void SpriteComponent::setCurrentAnimation(Ref<SpriteAnimation> animation) {
    Ref<SpriteAnimation> current = currentAnimation;
    if (equal(current.raw(), animation.raw())) return;
    currentAnimation = animation;
    const SpriteAnimation* chosen = animation.get();
    // The last frame number wraps around like any 32-bit sum; nothing is addressed with it.
    currentMaxFrame = chosen
        ? static_cast<int>(static_cast<unsigned>(chosen->startFrame) + static_cast<unsigned>(chosen->frameCount))
        : 0;
    currentMinFrame = chosen ? chosen->startFrame : 0;
    currentDirections = chosen ? chosen->directions : 1;
    animationSpeed = chosen ? chosen->speed : 0;
}

Ref<> SpriteComponent::getCurrentAnimationKey() const {
    Ref<SpriteAnimation> current = currentAnimation;
    Ref<Dict> animations = sprite->animations;
    Ref<> items = Ref<>::steal(PyDict_Items(animations.raw()));
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(items.raw()); i++) {
        PyObject* pair = PyList_GET_ITEM(items.raw(), i);
        if (equal(PyTuple_GET_ITEM(pair, 1), current.raw())) return Ref<>::borrow(PyTuple_GET_ITEM(pair, 0));
    }
    PyErr_SetNone(PyExc_StopIteration);
    throw PythonError{};
}

void SpriteComponent::setCurrentAnimationKey(PyObject* key) {
    Ref<Dict> animations = sprite ? sprite->animations : Ref<Dict>();
    play(item(animations.raw(), key));
}

void SpriteComponent::loadFromDict(PyObject* level, PyObject* input) {
    Ref<> sprites = getAttribute(level, "_sprites"_name);
    sprite = Convert<Ref<Sprite>>::from(item(sprites.raw(), item(input, "sprite").raw()).raw());
    shadeless = itemOr(input, "shadeless", false);
    zOffset = itemOr(input, "zOffset", 0.0);
    scale = itemOr(input, "scale", 1.0);
    blendMode = hasItem(input, "blendMode") ? blendModeOf(item(input, "blendMode").raw()) : blendAlpha;
    if (hasItem(input, "currentAnimation"))
        setAttribute(self(), "currentAnimationKey"_name, item(input, "currentAnimation").raw());
    else play(Ref<Sprite>(sprite)->firstAnimation());
    setAttribute(self(), "animationPercentage"_name, itemOr(input, "animationPercentage", toPython(0.0)).raw());
}

Ref<> SpriteComponent::dumpToDict(PyObject* level) const {
    Ref<> sprites = getAttribute(level, "_sprites"_name);
    return DictBuilder()
        .set("sprite", callByName(sprites.raw(), "index"_name, sprite))
        .set("shadeless", shadeless)
        .set("zOffset", zOffset)
        .set("scale", scale)
        .set("blendMode", blendMode == blendAdd ? "add" : "blend")
        .set("currentAnimation", getAttribute(self(), "currentAnimationKey"_name))
        .set("animationPercentage", getAttribute(self(), "animationPercentage"_name))
        .done();
}

void declareSpriteComponent(Module& module) {
    Class<SpriteComponent>("zelvarine.SpriteComponent", spriteDoc)
        .init<&SpriteComponent::init>({{"sprite", None{}}, {"shadeless", false}, {"zOffset", 0.0}, {"scale", 1.0},
            {"blendMode", static_cast<int>(blendAlpha)}})
        .property<&SpriteComponent::sprite>({"sprite", "_sprite"},
            "the Sprite or None. The constructor plays its first animation, StopIteration if it has none; a new\n"
            "sprite leaves the current animation alone")
        .property<&SpriteComponent::shadeless>({"shadeless", "_shadeless"}, "whether fog leaves the sprite alone")
        .property<&SpriteComponent::getBlendMode, &SpriteComponent::setBlendMode>(
            "blendMode", "'add' or 'alpha'; anything but 'add' selects plain blending")
        .property<&SpriteComponent::blendMode>("_blendMode", "BLENDMODE_BLEND or, for light, BLENDMODE_ADD, int")
        .property<&SpriteComponent::zOffset>(
            {"zOffset", "_zOffset"}, "how far down the sprite is moved, in halves of its unscaled height, float")
        .property<&SpriteComponent::scale>({"scale", "_scale"}, "size factor, float")
        .property<&SpriteComponent::dist>(
            "_dist", "distance to the camera in cells, written by the renderer in each frame, float")
        .property<&SpriteComponent::getCurrentAnimation, &SpriteComponent::setCurrentAnimation>("currentAnimation",
            "the SpriteAnimation that plays, or None. A new one starts at the position of the old one; the same\n"
            "one again changes nothing. With None the frame numbers and the speed are 0, the directions 1.")
        .property<&SpriteComponent::currentAnimation>(
            "_currentAnimation", "the animation alone, without what goes with it")
        .property<&SpriteComponent::getCurrentAnimationKey, &SpriteComponent::setCurrentAnimationKey>(
            "currentAnimationKey",
            "name of the current animation in the sprite's animations. Reading raises StopIteration if it is not\n"
            "among them; setting a name that is not there raises KeyError.")
        .property<&SpriteComponent::animationPercentage>(
            {"animationPercentage", "_animationPercentage"}, "position in the animation, from 0 to below 1, float")
        .property<&SpriteComponent::currentMinFrame>("_currentMinFrame", "number of the animation's first frame, int")
        .property<&SpriteComponent::currentMaxFrame>(
            "_currentMaxFrame", "the first frame plus the number of steps, int")
        .property<&SpriteComponent::currentDirections>("_currentDirections", "viewing directions of each step, int")
        .property<&SpriteComponent::animationSpeed>(
            "_animationSpeed", "part of the animation per second; negative while it runs back, float")
        .property<&SpriteComponent::angleToCam>(
            "_angleToCam", "which side faces the camera, in turns, written by the renderer in each frame, float")
        .method<&SpriteComponent::loadFromDict>("loadFromDict", {{"level"}, {"input"}},
            "Fills the component from a dict, as level files hold it. `level` is the level that is being loaded;\n"
            "'sprite' is an index into its sprites: IndexError if there is none such, KeyError without that key or\n"
            "for an animation that the sprite has not.")
        .method<&SpriteComponent::dumpToDict>("dumpToDict", {{"level"}},
            "The component as a dict, as level files hold it. `level` is the level that is being saved;\n"
            "ValueError if it does not hold the sprite.\n@return(dict)")
        .addTo(module.raw());
}

}  // namespace zv
