// In place of the kernels where the module is built without them.
#include "raycaster/core/vector/kernels.hpp"

namespace zv {

const std::vector<VectorTarget>& vectorTargets() {
    static const std::vector<VectorTarget> none;
    return none;
}

bool canDrawByVectors(const WorldPicture&) { return false; }
void drawWorldByVectors(const VectorTarget&, const WorldPicture&) {}
void drawSpriteByVectors(const VectorTarget&, const SpriteFrame&, const Fog&, const SpriteArea&,
    const std::vector<RayHit>&, double, const MutableImage&) {}

}  // namespace zv
