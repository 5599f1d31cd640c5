// A level: the grid of cells, the textures and sprites that cells and entities refer to, fog, entities.
#pragma once
#include "resources/entity/ecs.hpp"
#include "resources/level/cellbuffer.hpp"
#include "resources/level/fogcolor.hpp"
#include "resources/texture.hpp"

namespace zv {

struct Level : Resource {
    static FogColor defaultFogColor() { return FogColor(0xFF000000); }
    static FogColor defaultGroundFogColor() { return FogColor(0xFFFFFFFF); }
    static constexpr int defaultFogDensity = 5, defaultGroundFogDensity = 0;

    Ref<Dict> metadata = Ref<Dict>::steal(PyDict_New());
    int width = 0, height = 0;  // as the description says; the grid keeps its own size
    Ref<Texture> skyTexture;
    int fogDensity = defaultFogDensity, groundFogDensity = defaultGroundFogDensity;  // per cell, 255 being solid
    FogColor fogColor = defaultFogColor(), groundFogColor = defaultGroundFogColor();
    // What cells show, by texture index: the textures as they were when the assets were loaded.
    std::vector<Ref<Texture>> cellTextures;
    Ref<List> textures = Ref<List>::steal(PyList_New(0));
    Ref<List> sprites = Ref<List>::steal(PyList_New(0));
    Ref<List> entities = Ref<List>::steal(PyList_New(0));
    Ref<List> collisionBodies = Ref<List>::steal(PyList_New(0));
    Ref<Str> assetsPath;

    void eachRef(RefVisitor& visit) override;
    void init(Ref<> filename, Ref<> newAssetsPath);

    // The cells as they are; valid until a script runs.
    Grid grid() const { return cells.grid(); }
    std::tuple<Ref<>, Ref<>> getSize() const;
    int getBlock(int x, int y) const;
    void setBlock(int blockType, int x, int y);
    int getTextureIndex(int cardinalDirection, int x, int y) const;
    void setTextureIndex(int textureIndex, int cardinalDirection, int x, int y);
    Ref<> getTexture(int cardinalDirection, int x, int y) const;
    void printLevel() const;

    std::tuple<int, int, int> getFogColor() const { return fogColor.components(); }
    void setFogColor(PyObject* components) { fogColor = FogColor::of(components); }
    std::tuple<int, int, int> getGroundFogColor() const { return groundFogColor.components(); }
    void setGroundFogColor(PyObject* components) { groundFogColor = FogColor::of(components); }

    void loadFromFile(Ref<Str> filename);
    void loadMetadata(Ref<Str> filename, Ref<Str> header);
    void loadAssets();
    Ref<> convertPath(Ref<Str> path) const;
    Ref<> createComponent(Ref<Str> componentName, PyObject* component);
    void loadFromDict(PyObject* component, PyObject* input);

    void saveFile(Ref<Str> filename);
    void updateEntityMetadata();
    Ref<> dumpToDict(PyObject* object);

    void addEntity(Ref<Entity> entity);
    void removeEntity(Ref<Entity> entity);
    void removeAllEntities();
    Ref<Entity> addEntityFromJson(Ref<Dict> entity);
    void removeEntityFromJson(Ref<Entity> entity);
    void syncEntitiesFromEcs(Ref<Ecs> ecs);
    void syncEntitiesToEcs(Ref<Ecs> ecs);
    Ref<> getEntities(Args requiredComponentTypes) const;

    // The internal operations. All but loadEntity report their errors and return.
    virtual void loadFogSettings();
    virtual void initializeEmpty(int newWidth, int newHeight);
    virtual Ref<Entity> loadEntity(PyObject* entity);
    virtual void loadEntities();

private:
    CellBuffer cells;

    static Ref<> descriptionName(const Ref<Str>& filename);
    Ref<Texture> loadTexture(PyObject* path);
    uint8_t& byteAt(int offset, int x, int y) const;
    void printMap(int columnModulus) const;
};

// The module os.path, by the name that it has here.
inline Ref<> osPath() { return getAttribute(Module::global("os"_name).raw(), "path"_name); }

void declareLevel(Module&);

}  // namespace zv
