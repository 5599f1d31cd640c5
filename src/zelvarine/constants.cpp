#include "constants.hpp"

#include <SDL_image.h>

namespace zv {

struct Constant {
    const char* name;
    int value;
};

static constexpr Constant constants[] = {
    {"IMG_INIT_PNG", IMG_INIT_PNG},

    // How a sprite is drawn over what is behind it.
    {"BLENDMODE_BLEND", 0},
    {"BLENDMODE_ADD", 1},

    // Texture indices of a level's cell, as offsets in the cell.
    {"TEXTURE_FLOOR", 1},
    {"TEXTURE_CEILING", 2},
    {"TEXTURE_NORTH", 3},
    {"TEXTURE_EAST", 4},
    {"TEXTURE_SOUTH", 5},
    {"TEXTURE_WEST", 6},

    // Block types of a level's cell.
    {"BLOCK_EMPTY", 0},
    {"BLOCK_SQUARE", 1},
    {"BLOCK_TRIANGLE_NORTH_WEST", 2},
    {"BLOCK_TRIANGLE_NORTH_EAST", 3},
    {"BLOCK_TRIANGLE_SOUTH_EAST", 4},
    {"BLOCK_TRIANGLE_SOUTH_WEST", 5},

    // Layout of widgets.
    {"ALIGN_LEFT", 0},
    {"ALIGN_RIGHT", 1},
    {"ALIGN_CENTER", 2},

    {"VALIGN_TOP", 0},
    {"VALIGN_BOTTOM", 1},
    {"VALIGN_MIDDLE", 2},

    {"SIZE_AUTO", 0},
    {"SIZE_FIXED", 1},
    {"SIZE_GROW", 2},

    {"LIST_LAYOUT_HORIZONTAL", 0},
    {"LIST_LAYOUT_VERTICAL", 1},

    {"ANCHOR_LEFT", 0},
    {"ANCHOR_RIGHT", 1},
    {"ANCHOR_TOP", 2},
    {"ANCHOR_BOTTOM", 3},
    {"ANCHOR_CENTER", 4},

    {"SLIDER_ORIENTATION_HORIZONTAL", 0},
    {"SLIDER_ORIENTATION_VERTICAL", 1},
};

void declareConstants(Module& module) {
    for (const Constant& constant : constants) module.constant(constant.name, constant.value);
}

}  // namespace zv
