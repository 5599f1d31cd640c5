// The component that shows an entity as a sprite, with its state of playback.
#pragma once
#include "resources/entity/sprite.hpp"

namespace zv {

enum BlendMode : uint32_t { blendAlpha = 0, blendAdd = 1 };

struct SpriteComponent : Object {
    Ref<Sprite> sprite;
    bool shadeless = false;  // ignores fog
    uint32_t blendMode = blendAlpha;
    double zOffset = 0, scale = 1;
    double dist = 0;  // to the camera; the renderer writes it
    Ref<SpriteAnimation> currentAnimation;
    double animationPercentage = 0;
    // Copies of what the animation says, open to scripts on their own.
    int currentMinFrame = 0, currentMaxFrame = 0, currentDirections = 1;
    double animationSpeed = 0;  // the sign turns while an animation oscillates
    double angleToCam = 0;      // in turns; the renderer writes it

    void eachRef(RefVisitor& visit) override {
        visit(sprite);
        visit(currentAnimation);
    }

    void init(Ref<Sprite> newSprite, bool newShadeless, double newZOffset, double newScale, uint32_t newBlendMode);
    std::string getBlendMode() const { return blendMode ? "add" : "alpha"; }
    void setBlendMode(PyObject* mode);
    Ref<SpriteAnimation> getCurrentAnimation() const { return currentAnimation; }
    void setCurrentAnimation(Ref<SpriteAnimation> animation);
    Ref<> getCurrentAnimationKey() const;
    void setCurrentAnimationKey(PyObject* key);
    void loadFromDict(PyObject* level, PyObject* input);
    Ref<> dumpToDict(PyObject* level) const;

private:
    void play(const Ref<>& animation);
};

void declareSpriteComponent(Module&);

}  // namespace zv
