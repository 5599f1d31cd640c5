#include "raycaster/core/vector/kernels.hpp"

#include "raycaster/core/vector/strips.hpp"

#include <hwy/targets.h>

#include <algorithm>
#include <climits>
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

// Far from the ends of what a double holds: multiplied by a power of two that fits an int, it keeps all its digits.
static bool isModerate(double number) {
    double size = std::fabs(number);
    return number == 0 || (size > 1e-100 && size < 1e100);
}

static bool isModerate(Point point) { return isModerate(point.x) && isModerate(point.y); }

// A texel's number in its image is to fit an int.
static bool isModerate(const Image& image) { return static_cast<int64_t>(image.width) * image.height <= INT_MAX; }

bool canDrawByVectors(const WorldPicture& world) {
    auto canRead = [&](const Image& image) { return image.pixels != world.target.pixels && isModerate(image); };
    const std::vector<Image>& textures = world.scene.textures;
    const std::vector<RayHit>& hits = world.columns.hits;
    return world.scene.fog.isUsable() && isModerate(world.view.pos) && isModerate(world.view.scale()) &&
        !world.backdrop.panorama.reads(world.target.pixels) && canRead(world.flashlight) &&
        std::all_of(textures.begin(), textures.end(), canRead) &&
        std::all_of(hits.begin(), hits.end(), [](const RayHit& hit) { return isModerate(hit.rayDir); });
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
