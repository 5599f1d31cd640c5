#include "raycaster/frame.hpp"

#include "binding/items.hpp"

#include "raycaster/core/flats.hpp"
#include "raycaster/core/sky.hpp"
#include "raycaster/core/walls.hpp"
#include "resources/entity/basiccomponents.hpp"
#include "resources/entity/spritecomponent.hpp"

namespace zv {

// Beyond any screen, yet far enough from the end of int for the sums of the passes.
static constexpr int64_t farthestRow = 1 << 29;

void RaycastingRenderer::eachRef(RefVisitor& visit) {
    Renderer::eachRef(visit);
    visit(level);
    visit(camera);
    visit(flashlight);
}

void RaycastingRenderer::init(Ref<Texture> newTarget, Ref<Level> newLevel) {
    initTypes({&typeOf<PositionComponent>, &typeOf<SpriteComponent>});
    target = std::move(newTarget);
    level = std::move(newLevel);
    camera = make<Camera>(makeVector({2.5, 2.5}), makeVector({0, 1}), 60, 20);
    Ref<Texture> held = target;
    int width = std::get<0>(call<&Texture::getSize>(*held));
    rayHits.assign(static_cast<size_t>(std::clamp(width, 0, held->image().width)), RayHit());  // overrides may lie
    flashlight = {};
}

// Holds SDL's lock on a surface for the length of a frame.
struct SurfaceLock {
    explicit SurfaceLock(SDL_Surface* s) : surface(s) { SDL_LockSurface(surface); }
    ~SurfaceLock() { SDL_UnlockSurface(surface); }
    SurfaceLock(const SurfaceLock&) = delete;
    SurfaceLock& operator=(const SurfaceLock&) = delete;

private:
    SDL_Surface* surface;
};

// Paints what the passes have left of the backdrop, also when they fail.
struct RaycastingRenderer::BackdropScope {
    RaycastingRenderer& renderer;
    MutableImage image;
    ~BackdropScope() { renderer.backdrop.paint(image); }
};

// The kernels paint the backdrop along with the picture, where it shows. No script may see that it is not there yet:
// nothing between the fill of the target and the walls is a script's own, and the fill would reach every pixel.
bool RaycastingRenderer::canPaintLater(const Texture& texture) const {
    SDL_Rect clip;
    SDL_GetClipRect(texture.source(), &clip);
    return drawsByVectors() && Py_TYPE(texture.self()) == &typeOf<Texture> && camera && camera->dir &&
        Py_TYPE(camera->dir.raw()) == &typeOf<Vector2> && clip.w == texture.getWidth() && clip.h == texture.getHeight();
}

void RaycastingRenderer::render() {
    Ref<Texture> held = target;
    BackdropScope scope{*this, held->mutableImage()};
    if (canPaintLater(*held)) backdrop = {Backdrop::plain, 0xFF00B464, {}};
    else callByName(held.raw(), "fill"_name, std::tuple(0, 180, 100));
    SurfaceLock lock(held->surface());
    auto [width, height] = call<&Texture::getSize>(*held);
    int64_t horizon = static_cast<int64_t>(height / 2) + camera->pitch;
    callByName(camera->dir.raw(), "normalize"_name);

    // An override may tell any size; what is drawn fits the pixels and the columns that there are.
    Image image = held->image();
    width = std::clamp(width, 0, std::min(image.width, static_cast<int>(rayHits.size())));
    height = std::clamp(height, 0, image.height);
    int horizonRow = static_cast<int>(std::clamp(horizon, -farthestRow, farthestRow));
    renderSky(horizonRow);
    renderWalls(horizonRow, width, height);
}

View RaycastingRenderer::viewOf(int horizon, int width, int height) const {
    return {camera->pos->point(), camera->dir->point(), camera->fov, camera->ratio, horizon, width, height};
}

// A script that runs during a frame may call the constructor again, with a smaller target.
bool RaycastingRenderer::holds(const View& view) const {
    Image image = target->image();
    return view.width <= image.width && view.height <= image.height && view.width <= static_cast<int>(rayHits.size());
}

static std::optional<uint32_t> pixelOf(const FogColor& color) {
    return color.isPixel() ? std::optional(color.word()) : std::nullopt;
}

Fog fogOf(const Level& level) {
    return {level.fogDensity, level.groundFogDensity, pixelOf(level.fogColor), pixelOf(level.groundFogColor)};
}

static Scene sceneOf(const Level& level) {
    Scene scene{level.grid(), {}, fogOf(level)};
    scene.textures.reserve(level.cellTextures.size());
    for (const Ref<Texture>& texture : level.cellTextures) scene.textures.push_back(texture->image());
    return scene;
}

void RaycastingRenderer::renderSky(int horizon) {
    pass("zelvarine.RaycastingRenderer.renderSky"_name, [&] {
        Ref<Texture> sky = level->skyTexture, held = target;
        if (!sky) return;
        double degrees = Convert<double>::from(callByName(camera->dir.raw(), "getDegrees"_name).raw());
        MutableImage image = held->mutableImage();
        if (sky->image().empty()) return;
        Backdrop shown{Backdrop::sky, 0, {sky->image(), viewOf(horizon, image.width, image.height), degrees}};
        if (backdrop.kind == Backdrop::painted) shown.paint(image);
        else backdrop = std::move(shown);
    });
}

void RaycastingRenderer::renderWalls(int horizon, int width, int height) {
    pass("zelvarine.RaycastingRenderer.renderWalls"_name, [&] {
        if (width > 0) {
            View view = viewOf(horizon, width, height);
            if (!holds(view)) return;
            Scene scene = sceneOf(*level);
            Columns columns = traceColumns(scene.grid, view);
            drawWorld(scene, view, columns);
        }
        renderSprites(horizon, width, height);
    });
}

void RaycastingRenderer::drawWorld(const Scene& scene, const View& view, const Columns& columns) {
    MutableImage image = target->mutableImage();
    if (view.width < image.width || view.height < image.height) backdrop.paint(image);
    WorldPicture world{scene, view, columns, flashlight ? flashlight->image() : Image(), backdrop, image};
    if (drawsByVectors() && canDrawByVectors(world)) {
        drawWorldByVectors(vectorTargets()[kernels], world);
        std::copy(columns.hits.begin(), columns.hits.end(), rayHits.begin());
        backdrop.kind = Backdrop::painted;
        return;
    }
    backdrop.paint(image);
    // A color that is no pixel ends the pass where it is first needed, and columns come one after the other.
    int together = scene.fog.isUsable() ? view.width : 1;
    for (int x = 0; x < view.width; x += together) drawColumns(scene, view, columns, x, x + together);
}

void RaycastingRenderer::drawColumns(const Scene& scene, const View& view, const Columns& columns, int from, int to) {
    MutableImage image = target->mutableImage();
    drawWalls(scene, view, columns, image, from, to);
    std::copy(columns.hits.begin() + from, columns.hits.begin() + to, rayHits.begin() + from);
    if (flashlight && !flashlight->image().empty()) drawFlashlight(flashlight->image(), view, columns, image, from, to);
    drawFloor(scene, view, columns, image, from, to);
    drawCeiling(scene, view, columns, image, from, to);
}

static const char* const plainKernels = "plain";

Ref<> RaycastingRenderer::getKernels() const {
    Ref<> names = Ref<>::steal(PyList_New(0));
    for (const VectorTarget& each : vectorTargets()) append(names.raw(), each.name);
    append(names.raw(), plainKernels);
    return names;
}

void RaycastingRenderer::setKernels(PyObject* name) {
    Ref<> names = getKernels();
    Py_ssize_t index = PySequence_Index(names.raw(), name);
    if (index < 0) throw PythonError{};
    kernels = static_cast<size_t>(index);
}

void declareRaycastingRenderer(Module& module) {
    Class<RaycastingRenderer, Renderer>(
        "zelvarine.RaycastingRenderer", "Renders 2.5D levels using the raycasting technique")
        .init<&RaycastingRenderer::init>({{"target"}, {"level"}})
        .method<&RaycastingRenderer::render>("render", {},
            "Draws one frame: sky, walls, floors and ceilings, sprites. Rows that the camera's pitch moves off the\n"
            "screen are not drawn; a camera outside the grid sees no walls. What goes wrong inside one of the\n"
            "passes is reported on standard error, and the frame goes on.")
        .method<&RaycastingRenderer::getCamera>("getCamera", {}, "The camera of this renderer.")
        .method<&RaycastingRenderer::setFlashlight>("_setFlashlight", {{"flashlight"}},
            "Sets the mask of light on walls, stretched over the width of the picture; None switches it off.")
        .method<&RaycastingRenderer::getKernels>("_getKernels", {},
            "The vector units of this machine that pixels can be drawn with, as names, the best one first; the last\n"
            "name is that of the plain loops. All draw the same pixels.\n@return([str])")
        .method<&RaycastingRenderer::setKernels>("_setKernels", {{"name", Required{}, "str"}},
            "Draws with the vector unit of that name from now on; ValueError for a name that _getKernels does not\n"
            "tell. A new renderer takes the best one.")
        .method<&RaycastingRenderer::castRay>("castRay", {{"pos"}, {"dir"}},
            "The point on the wall that a ray from `pos` in the direction `dir` hits; None if the ray leaves the\n"
            "level.")
        .method<&RaycastingRenderer::getEntityAtScreenCoords>("getEntityAtScreenCoords", {{"x"}, {"y"}},
            "The nearest entity of the last frame at a pixel of the target, or None, also when `x` is not on the\n"
            "screen. Entities count as squares of the unscaled size, transparent parts included.\n"
            "@return(Entity or None)")
        .method<&RaycastingRenderer::getWorldCellByScreenCoords>("getWorldCellByScreenCoords", {{"x"}, {"y"}},
            "What the last frame shows at a pixel of the target, as (face, cellX, cellY): TEXTURE_FLOOR,\n"
            "TEXTURE_CEILING or the face of a wall, and the cell. None when `x` is not on the screen, and on the\n"
            "horizon of a column without a wall. Raises ZeroDivisionError when the camera's ratio is 0.\n"
            "@return((int, int, int) or None)")
        .method<&RaycastingRenderer::getWorldPosByScreenCoords>("getWorldPosByScreenCoords", {{"x"}, {"y"}},
            "As getWorldCellByScreenCoords, but on floors and ceilings the coordinates are the exact point.\n"
            "@return((int, float, float), for a wall (int, int, int), or None)")
        .readonly<&RaycastingRenderer::level>("level", "the level that is drawn")
        .addTo(module.raw());
}

}  // namespace zv
