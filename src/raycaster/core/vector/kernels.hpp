// The passes of a frame for processors with vector units: the same words as the plain loops, many pixels at a time.
#pragma once
#include "raycaster/core/sky.hpp"
#include "raycaster/core/sprites.hpp"

#include <string>

namespace zv {

// The vector units that the kernels are compiled for and this processor has, the best one first; empty where the
// module is built without them.
struct VectorTarget {
    std::string name;
    int64_t id;
};
const std::vector<VectorTarget>& vectorTargets();

// What the kernels are to draw, and on what.
struct WorldPicture {
    const Scene& scene;
    const View& view;
    const Columns& columns;
    const Image& flashlight;  // empty without one
    const Backdrop& backdrop;
    const MutableImage& target;
};

// Whether the kernels give the words of the plain loops: they read what the picture held before, and take no numbers
// that are beyond all measure.
bool canDrawByVectors(const WorldPicture& world);

// Walls with the flashlight on them, floors, ceilings, and the backdrop where none of them is.
void drawWorldByVectors(const VectorTarget&, const WorldPicture& world);

// See drawSprite().
void drawSpriteByVectors(const VectorTarget&, const SpriteFrame& frame, const Fog& fog, const SpriteArea& area,
    const std::vector<RayHit>& rayHits, double depth, const MutableImage& target);

}  // namespace zv
