#include "raycaster/core/vector/kernels.hpp"

#include "raycaster/core/vector/strips.hpp"

#include <hwy/targets.h>

#include <cmath>

namespace zv {

const std::vector<VectorTarget>& vectorTargets() {
    static const std::vector<VectorTarget> targets = [] {
        std::vector<VectorTarget> found;
        for (int64_t id : hwy::SupportedAndGeneratedTargets())
            if (id != HWY_SCALAR && id != HWY_EMU128) found.push_back({hwy::TargetName(id), id});
        return found;
    }();
    return targets;
}

// For the kernels that are called next.
static void choose(const VectorTarget& target) { hwy::GetChosenTarget().Update(target.id); }

bool canDrawByVectors(const WorldPicture& world) {
    const uint32_t* drawnOn = world.target.pixels;
    for (const Image& texture : world.scene.textures)
        if (texture.pixels == drawnOn) return false;
    if (world.flashlight.pixels == drawnOn || world.backdrop.panorama.reads(drawnOn)) return false;
    const View& view = world.view;
    bool isFinite = std::isfinite(view.pos.x) && std::isfinite(view.pos.y) && std::isfinite(view.scale());
    for (const RayHit& hit : world.columns.hits)
        isFinite = isFinite && std::isfinite(hit.rayDir.x) && std::isfinite(hit.rayDir.y);
    return isFinite && world.scene.fog.isUsable();
}

WorldStrips::WorldStrips(const WorldPicture& world) : WorldPicture(world) {
    size_t width = static_cast<size_t>(view.width), length = width + padding;
    rayX.resize(length);
    rayY.resize(length);
    top.assign(length, 0);
    bottom.assign(length, view.height);
    for (size_t x = 0; x < width; x++) {
        Point ray = world.columns.hits[x].rayDir;
        rayX[x] = ray.x;
        rayY[x] = ray.y;
        const Slice& slice = world.columns.slices[x];
        top[x] = std::clamp(std::min(slice.start, view.horizon), 0, view.height);
        bottom[x] = std::clamp(std::max(slice.end, view.horizon + 1), top[x], view.height);
    }
}

void drawWorldByVectors(const VectorTarget& target, const WorldPicture& world) {
    choose(target);
    WorldStrips strips(world);
    drawWallsByVectors(strips, 0, world.view.width);
    int farthest = std::max(std::abs(world.view.horizon), std::abs(world.view.height - world.view.horizon));
    drawFlatsByVectors(strips, 1, farthest + 1);
}

void drawSpriteByVectors(const VectorTarget& target, const SpriteFrame& frame, const Fog& fog, const SpriteArea& area,
    const std::vector<RayHit>& rayHits, double depth, const MutableImage& picture) {
    choose(target);
    drawSpriteByVectors(frame, fog, area, rayHits, depth, picture);
}

}  // namespace zv
