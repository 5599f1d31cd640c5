// The renderer of levels: the order of a frame, and the questions that scripts ask about it.
#pragma once
#include "raycaster/camera.hpp"
#include "raycaster/core/vector/kernels.hpp"
#include "renderer.hpp"
#include "resources/level.hpp"

namespace zv {

struct RaycastingRenderer : Renderer {
    Ref<Level> level;
    Ref<Camera> camera;
    Ref<Texture> flashlight;

    void eachRef(RefVisitor& visit) override;

    void init(Ref<Texture> newTarget, Ref<Level> newLevel);
    void render();
    Ref<Camera> getCamera() const { return camera; }
    void setFlashlight(Ref<Texture> mask) { flashlight = std::move(mask); }
    Ref<> getKernels() const;
    void setKernels(PyObject* name);

    Ref<Vector2> castRay(const Vector2& pos, const Vector2& dir);
    Ref<> getEntityAtScreenCoords(int x, int y);
    Ref<> getWorldCellByScreenCoords(int x, int y);
    Ref<> getWorldPosByScreenCoords(int x, int y);

protected:
    // The passes of a frame. None can raise: what goes wrong in one is reported, and the next one runs.
    virtual void renderWalls(int horizon, int width, int height);
    virtual void renderSprites(int horizon, int width, int height);
    virtual void renderSky(int horizon);

private:
    // One per column of the target, of the last frame: the depth buffer of sprites and queries.
    std::vector<RayHit> rayHits;
    // What is still to be painted of the frame's background: the kernels paint it where it shows, and nowhere else.
    Backdrop backdrop;
    // Which of vectorTargets() draws; behind the last one, the plain loops do.
    size_t kernels = 0;

    template <class Body> void pass(Name& name, Body&& body);
    View viewOf(int horizon, int width, int height) const;
    bool holds(const View& view) const;
    bool hasColumn(int x) const;
    bool drawsByVectors() const { return kernels < vectorTargets().size(); }
    struct BackdropScope;
    bool canPaintLater(const Texture& texture) const;
    void drawWorld(const Scene& scene, const View& view, const Columns& columns);
    void drawColumns(const Scene& scene, const View& view, const Columns& columns, int from, int to);
    void measure(PyObject* entity, const View& view);
    void drawEntity(PyObject* entity, const View& view, const Rotation& viewRot, int& groundFog);
    void sortByDistance();
    Ref<> cellOrPoint(int x, int y, bool cell);
};

Fog fogOf(const Level& level);

// Runs a pass: what goes wrong in it is reported, and the frame goes on.
template <class Body> void RaycastingRenderer::pass(Name& name, Body&& body) {
    unraisable(name, [&] {
        try {
            body();
        } catch (const UnusableFogColor& color) {  // the level's number tells what is wrong with it
            (color.isGround ? level->groundFogColor : level->fogColor).word();
        }
    });
}

void declareRaycastingRenderer(Module&);

}  // namespace zv
