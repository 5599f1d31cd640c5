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

void Level::init(Ref<> filename, Ref<> newAssetsPath) {
    Resource::init(filename ? filename : toPython("???"));
    assetsPath = Convert<Ref<Str>>::from(newAssetsPath.orNone());
    if (!filename) {
        Ref<Texture> checker = make<Texture>(64, 64);
        checker->fillChecker();
        std::vector<Ref<Texture>> newCellTextures{checker};
        cellTextures.swap(newCellTextures);
        callByName(textures.raw(), "append"_name, checker);
        initializeEmpty(30, 30);
    } else {
        if (!assetsPath)
            assetsPath = Convert<Ref<Str>>::from(callByName(osPath().raw(), "dirname"_name, filename).raw());
        call<&Level::loadFromFile>(*this, Convert<Ref<Str>>::from(filename.raw()));
    }
}

void Level::initializeEmpty(int newWidth, int newHeight) {
    unraisable("zelvarine.Level._initializeEmpty"_name, [&] {
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
        printMap(newWidth);  // every column number as it is
        call<&Level::loadAssets>(*this);
    });
}

std::tuple<Ref<>, Ref<>> Level::getSize() const {
    return {item(metadata.raw(), "width"), item(metadata.raw(), "height")};
}

void declareLevel(Module& module) {
    module.value("ASCII_CELLS", Ref<>::steal(Py_BuildValue("[ssssss]", "□", "■", "◤", "◥", "◣", "◢")));
    Class<Level, Resource>("zelvarine.Level",
        "A level resource.\n\n"
        "Level() is an empty room of 30 by 30 cells with walls around it, all of one checkered texture.\n"
        "Level(filename) reads two files, the grid `filename` and its description `filename` + '.json', and the\n"
        "pictures that the description names; relative names start from the folder `assetsPath`, or else from that\n"
        "of `filename`. Raises LevelFormatException for an invalid description, OSError for a file that cannot be\n"
        "read, KeyError for a key that a sprite lacks. Entities that cannot be loaded are only reported on standard\n"
        "error. docs/level-files.md tells all that the files may hold.\n\n"
        "Some steps print lines: Level() a map of itself, an unknown component its name, saveFile the names of its\n"
        "files. contextlib.redirect_stdout keeps them quiet.")
        .init<&Level::init>({{"filename", None{}}, {"assetsPath", None{}}})
        .readonly<&Level::metadata>("metadata", "dict of the content of the level's JSON description")
        .readonly<&Level::width>("width", "width in cells, int")
        .readonly<&Level::height>("height", "height in cells, int")
        .method<&Level::getSize>("getSize", {}, "Returns the size of the level in blocks.\n@return((int, int))")
        .method<&Level::getBlock>(
            "getBlock", {{"x"}, {"y"}}, "The block type of a cell; IndexError outside of the level.")
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
        .method<&Level::printLevel>(
            "printLevel", {}, "Prints a map of the blocks; IndexError for a block that is no block type.")
        .property<&Level::fogDensity>(
            "fogDensity", "fog on walls and sprites per cell of distance, where 255 is solid, int")
        .property<&Level::groundFogDensity>(
            "groundFogDensity", "ground fog per cell of distance, where 255 is solid; 0 is none, int")
        .property<&Level::getFogColor, &Level::setFogColor>("fogColor",
            "color of the fog, (r, g, b). A component above 255 runs into its neighbour. A color that does not\n"
            "fit 32 bits is kept, but cannot be drawn: the renderer reports OverflowError.")
        .property<&Level::getGroundFogColor, &Level::setGroundFogColor>(
            "groundFogColor", "color of the ground fog, (r, g, b), like fogColor")
        .property<&Level::textures>("_textures", "list of the textures of the cells, by texture index")
        .readonly<&Level::textures>("textures",
            "list of the textures of the cells, by texture index. The renderer draws those that were loaded with\n"
            "the level, also when they are painted anew, but none that is appended or put in their place later")
        .property<&Level::sprites>("_sprites", "list of the sprites, by the index that level files use")
        .readonly<&Level::sprites>("sprites", "list of the sprites, by the index that level files use")
        .property<&Level::entities>("_entities", "list of the entities")
        .property<&Level::collisionBodies>("_collisionBodies", "list for scripts; the engine does not use it")
        .property<&Level::assetsPath>("_assetsPath", "folder that relative paths of assets start from, str or None")
        .method<&Level::loadFromFile>("_loadFromFile", {{"filename", Required{}, "str"}},
            "Loads the level `filename`, its description `filename` + '.json' first; meant for a new level, since\n"
            "assets and entities join those that are there. A grid file that is too short is filled up with empty\n"
            "cells, the surplus of a longer one is ignored. Raises LevelFormatException for an invalid description,\n"
            "OSError for a file that cannot be read, OverflowError for a grid of negative size or above 2 GiB.\n"
            "Entities that cannot be loaded are reported on standard error.")
        .method<&Level::loadMetadata>("_loadMetadata", {{"filename", Required{}, "str"}, {"header", Required{}, "str"}},
            "Replaces the metadata by the JSON text `header`; the grid stays until `_loadFromFile` replaces it.\n"
            "Raises LevelFormatException, with `filename` in it, for an invalid description.")
        .method<&Level::loadAssets>("_loadAssets", {},
            "Loads the sky, the textures and the sprites that the metadata names. What was loaded before a file that\n"
            "cannot be loaded stays.")
        .method<&Level::convertPath>("_convertPath", {{"path", Required{}, "str"}},
            "The path of an asset: a relative one starts from `_assetsPath`.\n@return(str)")
        .method<&Level::createComponent>("createComponent",
            {{"componentName", Required{}, "str"}, {"component", Required{}, "dict"}},
            "Creates a component from its name and its dict in a level file. For an unknown name a subclass of\n"
            "DummyComponent is made and registered, which keeps the data.")
        .method<&Level::loadFromDict>("_loadFromDict", {{"component"}, {"input", Required{}, "dict"}},
            "Stores the items of `input` as attributes, for components without a method loadFromDict.")
        .method<&Level::saveFile>("saveFile", {{"filename", Required{}, "str"}},
            "Saves the content of the level as LVL file\n        (thus, the file name should end with '.lvl')\n\n"
            "The metadata goes to `filename` + '.json', with the entities brought up to date, and the grid to\n"
            "`filename`, both in place. Lists and fog that a script changed are not in the metadata. Raises\n"
            "ValueError, before anything is written, when the metadata is of another size than the grid.")
        .method<&Level::updateEntityMetadata>(
            "_updateEntityMetadata", {}, "Makes metadata['entities'] anew from the entities.")
        .method<&Level::dumpToDict>("_dumpToDict", {{"obj"}},
            "Plain values from the attributes of an object, for JSON. Names with a leading underscore are left\n"
            "out, other iterables than str become lists. Raises RecursionError for objects in a circle.")
        .method<&Level::addEntity>(
            "addEntity", {{"entity"}}, "Appends an entity; the metadata learn of it when the level is saved.")
        .method<&Level::removeEntity>(
            "removeEntity", {{"entity"}}, "Removes an entity; ValueError if it is not in the level.")
        .method<&Level::removeAllEntities>("removeAllEntities", {}, "Removes all entities.")
        .method<&Level::addEntityFromJson>("addEntityFromJson", {{"entity", Required{}, "dict"}},
            "Adds an entity from its dict in a level file, to the metadata as well. Raises KeyError when the\n"
            "metadata have no 'entities'.\n@return(Entity)")
        .method<&Level::removeEntityFromJson>("removeEntityFromJson", {{"entity"}},
            "Removes an entity and, at the same place, its dict in the metadata. Raises ValueError if it is not\n"
            "in the level, which then is unchanged, KeyError or IndexError if the metadata do not have it.")
        .method<&Level::syncEntitiesFromEcs>("syncEntitiesFromEcs", {{"ecs"}},
            "Replaces the level's entities by those of the Ecs; they are shared, not copied.")
        .method<&Level::syncEntitiesToEcs>("syncEntitiesToEcs", {{"ecs"}},
            "Replaces the entities of the Ecs by the level's; they are shared, not copied.")
        .method<&Level::getEntities>("getEntities", {},
            "Without arguments the live list of all entities; with component types, a new list of the entities\n"
            "that have all of them.\n@return(list)")
        .addTo(module.raw());
}

}  // namespace zv
