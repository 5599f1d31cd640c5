// Sprite sheets: textures cut into equal frames, and the animations over those frames.
#pragma once
#include "resources/texture.hpp"

namespace zv {

// One animation of a sheet; step s seen from direction d is frame startFrame + s * directions + d.
struct SpriteAnimation : Object {
    Ref<Str> name;
    int frameCount = 1;
    bool oscillate = false;  // forth and back instead of around
    double speed = 0;        // per second, where 1 is the whole animation
    int startFrame = 0;
    int directions = 1;  // as the script gave it: 0 or less is possible

    void eachRef(RefVisitor& visit) override { visit(name); }
};

// Frame n is in column n % xFrames and row n / xFrames of the sheet.
struct Sprite : Object {
    Ref<Texture> texture;       // empty until the constructor ran
    int width = 0, height = 0;  // of a frame, in pixels
    int xFrames = 1, yFrames = 1;
    Ref<Dict> animations = Ref<Dict>::steal(PyDict_New());  // by name; scripts may put anything there

    void eachRef(RefVisitor& visit) override {
        visit(texture);
        visit(animations);
    }
    void init(Ref<Texture> newTexture, int newXFrames, int newYFrames, Ref<List> spriteAnimations);

    // Whatever stands first in `animations`; raises StopIteration if nothing does.
    Ref<> firstAnimation() const;
};

// The sheet and the component that shows it describe themselves in the same words.
inline constexpr const char* spriteDoc =
    "A sprite can be used in an entity inside a level.\n"
    "It contains information about animations and directional frames";

void declareSprite(Module&);

}  // namespace zv
