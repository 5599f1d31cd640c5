// A level: the grid of cells, the textures and sprites that cells and entities refer to, fog, entities.
#pragma once
#include "resources/level/grid.hpp"
#include "resources/texture.hpp"

namespace zv {

struct Level : Resource {
    Ref<Dict> metadata = Ref<Dict>::steal(PyDict_New());
    int width = 0, height = 0;
    Ref<Texture> skyTexture;
    int fogDensity = 0, groundFogDensity = 0;
    uint32_t fogColor = 0, groundFogColor = 0;  // 0xFFRRGGBB
    // What cells show, by texture index: the textures as they were when the assets were loaded.
    std::vector<Ref<Texture>> cellTextures;
    Ref<List> textures = Ref<List>::steal(PyList_New(0));
    Ref<List> sprites = Ref<List>::steal(PyList_New(0));
    Ref<List> entities = Ref<List>::steal(PyList_New(0));
    Ref<List> collisionBodies = Ref<List>::steal(PyList_New(0));
    Ref<Str> assetsPath;

    void eachRef(RefVisitor& visit) override;

    // The cells as they are; valid until a script runs.
    Grid grid();

private:
    std::vector<uint8_t> data;
    int gridWidth = 0, gridHeight = 0;  // of `data`, whatever a script did to the rest
};

void declareLevel(Module&);

}  // namespace zv
