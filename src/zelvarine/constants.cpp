#include "zelvarine/constants.hpp"

#include "ui/anchoredcontainer.hpp"
#include "ui/listcontainer.hpp"
#include "ui/slider.hpp"

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
    {"ALIGN_LEFT", ALIGN_LEFT},
    {"ALIGN_RIGHT", ALIGN_RIGHT},
    {"ALIGN_CENTER", ALIGN_CENTER},

    {"VALIGN_TOP", VALIGN_TOP},
    {"VALIGN_BOTTOM", VALIGN_BOTTOM},
    {"VALIGN_MIDDLE", VALIGN_MIDDLE},

    {"SIZE_AUTO", SIZE_AUTO},
    {"SIZE_FIXED", SIZE_FIXED},
    {"SIZE_GROW", SIZE_GROW},

    {"LIST_LAYOUT_HORIZONTAL", LIST_LAYOUT_HORIZONTAL},
    {"LIST_LAYOUT_VERTICAL", LIST_LAYOUT_VERTICAL},

    {"ANCHOR_LEFT", ANCHOR_LEFT},
    {"ANCHOR_RIGHT", ANCHOR_RIGHT},
    {"ANCHOR_TOP", ANCHOR_TOP},
    {"ANCHOR_BOTTOM", ANCHOR_BOTTOM},
    {"ANCHOR_CENTER", ANCHOR_CENTER},

    {"SLIDER_ORIENTATION_HORIZONTAL", SLIDER_ORIENTATION_HORIZONTAL},
    {"SLIDER_ORIENTATION_VERTICAL", SLIDER_ORIENTATION_VERTICAL},
};

void declareConstants(Module& module) {
    for (const Constant& constant : constants) module.constant(constant.name, constant.value);
}

}  // namespace zv
