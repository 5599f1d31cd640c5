// Fog: how much of it there is, and the blending towards its colors.
#pragma once
#include "core/blend.hpp"
#include "core/numbers.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace zv {

// Thrown where a fog color is needed that is no pixel.
struct UnusableFogColor {
    bool isGround;
};

struct Fog {
    int density = 0, groundDensity = 0;  // amount per cell of distance, out of 255
    // Empty if what the script set is no pixel; that harms nothing until a pass needs the color.
    std::optional<uint32_t> color, groundColor;

    bool isUsable() const { return color && groundColor; }

    // The amount from 0 to 255 at a distance; 255 is solid.
    static int amount(int density, double dist) { return std::clamp(truncate(density * dist), 0, 255); }
    int at(double dist) const { return amount(density, dist); }
    int groundAt(double dist) const { return groundDensity > 0 ? amount(groundDensity, dist) : 0; }

    uint32_t solid() const {
        if (!color) throw UnusableFogColor{false};
        return *color;
    }
    // A texel behind an amount of fog.
    uint32_t over(uint32_t texel, int amount) const { return mix(texel, solid(), amount); }
    uint32_t groundOver(uint32_t texel, int amount) const {
        if (!groundColor) throw UnusableFogColor{true};
        return mix(texel, *groundColor, amount);
    }
};

// How far ground fog has risen at a row of a wall or sprite: the squared share of the way down, in the single
// precision that the picture is defined in.
inline int groundFogAt(int groundFog, int y, int top, int rows) {
    double share = static_cast<double>((static_cast<float>(y) - static_cast<float>(top)) / static_cast<float>(rows));
    return static_cast<int>(static_cast<float>(groundFog) * static_cast<float>(share * share));
}

}  // namespace zv
