#include "resources/level.hpp"

#include "binding/items.hpp"

namespace zv {

void Level::eachRef(RefVisitor& visit) {
    Resource::eachRef(visit);
    visit(metadata);
    visit(skyTexture);
    visit(cellTextures);
    visit(textures);
    visit(sprites);
    visit(entities);
    visit(collisionBodies);
    visit(assetsPath);
}

void Level::init(Ref<> filename, Ref<Str> newAssetsPath) {
    static Name append{"append"};
    Resource::init(filename ? filename : toPython(std::string_view("???")));
    assetsPath = std::move(newAssetsPath);
    if (!filename) {
        Ref<Texture> checker = create<Texture>(64, 64);
        checker->fillChecker();
        std::vector<Ref<Texture>> newCellTextures{checker};
        cellTextures.swap(newCellTextures);
        callByName(textures.raw(), append, checker);
        initializeEmpty(30, 30);
    }
}

void Level::initializeEmpty(int newWidth, int newHeight) {
    static Name where{"zelvarine.Level._initializeEmpty"};
    unraisable(where, [&] {
        print("INIT EMPTY LEVEL");
        width = newWidth;
        height = newHeight;
        PyObject* settings = metadata.raw();
        setItem(settings, "width", newWidth);
        setItem(settings, "height", newHeight);
        setItem(settings, "fogColor", Ref<>::steal(Py_BuildValue("[iii]", 0, 0, 0)));
        setItem(settings, "fogDensity", defaultFogDensity);
        loadFogSettings();
        cells = CellBuffer(newWidth, newHeight);
        for (int x = 0; x < newWidth; x++) byteAt(cellBlock, x, 0) = byteAt(cellBlock, x, newHeight - 1) = blockSquare;
        for (int y = 0; y < newHeight; y++) byteAt(cellBlock, 0, y) = byteAt(cellBlock, newWidth - 1, y) = blockSquare;
        printMap(newWidth);
    });
}

std::tuple<Ref<>, Ref<>> Level::getSize() const { return {item(metadata.raw(), "width"), item(metadata.raw(), "height")}; }

static void declareConstants(Module& module) {
    module.constant("BLOCK_EMPTY", blockEmpty).constant("BLOCK_SQUARE", blockSquare)
        .constant("BLOCK_TRIANGLE_NORTH_WEST", blockNorthWest).constant("BLOCK_TRIANGLE_NORTH_EAST", blockNorthEast)
        // These two are solid on the other side than their names say, and stay so: level files hold the numbers.
        .constant("BLOCK_TRIANGLE_SOUTH_EAST", blockSouthWest).constant("BLOCK_TRIANGLE_SOUTH_WEST", blockSouthEast)
        .constant("TEXTURE_FLOOR", cellFloor).constant("TEXTURE_CEILING", cellCeiling)
        .constant("TEXTURE_NORTH", cellNorth).constant("TEXTURE_EAST", cellEast)
        .constant("TEXTURE_SOUTH", cellSouth).constant("TEXTURE_WEST", cellWest)
        .value("ASCII_CELLS", Ref<>::steal(Py_BuildValue("[ssssss]", "□", "■", "◤", "◥", "◣", "◢")));
}

void declareLevel(Module& module) {
    declareConstants(module);
    Class<Level, Resource>("zelvarine.Level", "A level resource.")
        .init<&Level::init>({{"filename", None{}}, {"assetsPath", None{}}})
        .readonly<&Level::metadata>("metadata", "dict of the content of the level's JSON description")
        .readonly<&Level::width>("width", "width in cells, int")
        .readonly<&Level::height>("height", "height in cells, int")
        .method<&Level::getSize>("getSize", {}, "Returns the size of the level in blocks.\n@return((int, int))")
        .method<&Level::getBlock>("getBlock", {{"x"}, {"y"}}, "The block type of a cell; IndexError outside of the level.")
        .method<&Level::setBlock>("setBlock", {{"blockType"}, {"x"}, {"y"}},
            "Sets the block type of a cell, one of the BLOCK_ constants, of which the low 8 bits are stored.\n"
            "Raises IndexError outside of the level.")
        .method<&Level::getTextureIndex>("getTextureIndex", {{"cardinalDirection"}, {"x"}, {"y"}},
            "The texture index of a side of a cell; `cardinalDirection` is one of the TEXTURE_ constants, or 0\n"
            "for the block type. Raises IndexError outside of the level and for another direction.")
        .method<&Level::setTextureIndex>("setTextureIndex", {{"textureIndex"}, {"cardinalDirection"}, {"x"}, {"y"}},
            "Sets the texture index of a side of a cell, of which the low 8 bits are stored; 255 on a floor or\n"
            "ceiling is no texture. `cardinalDirection` is one of the TEXTURE_ constants, or 0 for the block type.\n"
            "Raises IndexError outside of the level and for another direction.")
        .method<&Level::getTexture>("getTexture", {{"cardinalDirection"}, {"x"}, {"y"}},
            "The texture of a side of a cell, or None where the level has no texture of that index. Raises\n"
            "IndexError outside of the level and for another direction.\n@return(Texture or None)")
        .method<&Level::printLevel>("printLevel", {}, "Prints a map of the blocks; IndexError for a block that is no block type.")
        .property<&Level::fogDensity>("fogDensity", "fog on walls and sprites per cell of distance, where 255 is solid, int")
        .property<&Level::groundFogDensity>("groundFogDensity", "ground fog per cell of distance, where 255 is solid; 0 is none, int")
        .property<&Level::getFogColor, &Level::setFogColor>("fogColor",
            "colour of the fog, (r, g, b). A component above 255 runs into its neighbour. A colour that does not\n"
            "fit 32 bits is kept, but cannot be drawn: the renderer reports OverflowError.")
        .property<&Level::getGroundFogColor, &Level::setGroundFogColor>("groundFogColor", "colour of the ground fog, (r, g, b), like fogColor")
        .property<&Level::textures>("_textures", "list of the textures of the cells, by texture index")
        .readonly<&Level::textures>("textures", "list of the textures of the cells, by texture index. The renderer sees the\n"
            "textures as they were when the level was loaded")
        .property<&Level::sprites>("_sprites", "list of the sprites, by the index that level files use")
        .readonly<&Level::sprites>("sprites", "list of the sprites, by the index that level files use")
        .property<&Level::entities>("_entities", "list of the entities")
        .property<&Level::collisionBodies>("_collisionBodies", "list for scripts; the engine does not use it")
        .property<&Level::assetsPath>("_assetsPath", "folder that relative paths of assets start from, str or None")
        .addTo(module.raw());
}

}  // namespace zv
