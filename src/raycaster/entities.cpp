// The sprite pass of a frame: what is read from entities and written back to them.
#include "raycaster/core/sprites.hpp"
#include "raycaster/frame.hpp"
#include "resources/entity/basiccomponents.hpp"
#include "resources/entity/spritecomponent.hpp"

namespace zv {

// Which side of an entity is seen, in turns; 1 when the camera stands where the entity looks to.
static double angleToCamera(Point toCamera, Point facing) {
    return 1.0 -
        (std::atan2(toCamera.y, toCamera.x) - std::atan2(facing.y, facing.x) + 3.141592653589793) / 6.283185307179586 +
        0.5;
}

static void advance(SpriteComponent& sprite, const SpriteAnimation& animation, double timeStep) {
    double& position = sprite.animationPercentage;
    position += sprite.animationSpeed * timeStep;
    if (animation.oscillate) {
        double aStep = animation.frameCount ? 1.0 / animation.frameCount : 0.0;
        if (position >= 1.0) {
            sprite.animationSpeed = -sprite.animationSpeed;
            position -= aStep;
        } else if (position < 0.0) {
            sprite.animationSpeed = -sprite.animationSpeed;
            position += aStep;
        }
    } else if (position >= 1.0) {
        position = 0.0;
    }
}

// The number of the frame in the sheet: views are centred on their directions by half a step.
static int64_t frameNumber(const SpriteComponent& sprite, const SpriteAnimation& animation) {
    int64_t step = std::max(truncate(sprite.animationPercentage * animation.frameCount), 0);
    int64_t base = step * sprite.currentDirections + sprite.currentMinFrame;
    int directions = animation.directions;
    int view = truncate(directions * (sprite.angleToCam + 1.0 / (2.0 * directions))) % directions;
    return std::clamp<int64_t>(base + view, INT_MIN, INT_MAX);
}

// Scripts may make sheets and animations of any numbers; what has no frame is not drawn.
static bool canBeDrawn(const SpriteComponent& component) {
    const Sprite& sheet = *component.sprite;
    return sheet.texture && !sheet.texture->image().empty() && sheet.width > 0 && sheet.height > 0 &&
        sheet.xFrames > 0 && component.currentAnimation->directions > 0 && component.currentAnimation->frameCount > 0;
}

static SpriteFrame frameOf(const SpriteComponent& component, int fog, int groundFog) {
    const Sprite& sheet = *component.sprite;
    int64_t number = frameNumber(component, *component.currentAnimation);
    auto inSheet = [](int64_t pixel) { return static_cast<int>(std::clamp<int64_t>(pixel, INT_MIN / 2, INT_MAX / 2)); };
    return {sheet.texture->image(), inSheet(number % sheet.xFrames * sheet.width),
        inSheet(number / sheet.xFrames * sheet.height), sheet.width, sheet.height, component.scale, component.zOffset,
        component.shadeless, component.blendMode == blendAdd, fog, groundFog};
}

// The key function of the sort.
static PyObject* distanceOf(PyObject*, PyObject* entity) noexcept {
    return guarded<PyObject*>(nullptr, [&] { return toPython(componentOf<SpriteComponent>(entity)->dist).release(); });
}

void RaycastingRenderer::sortByDistance() {
    static PyMethodDef keyFunction{"dist", distanceOf, METH_O, nullptr};
    entities.sortDescending(Ref<>::steal(PyCFunction_New(&keyFunction, nullptr)).raw());
}

void RaycastingRenderer::measure(PyObject* entity, const View& view) {
    Ref<PositionComponent> position = componentOf<PositionComponent>(entity);
    Ref<SpriteComponent> component = componentOf<SpriteComponent>(entity);
    Ref<RotationComponent> rotation = componentOf<RotationComponent>(entity);
    Point toCamera = view.pos - position->pos->point();
    component->dist = length(toCamera);
    component->angleToCam = angleToCamera(toCamera, rotation ? rotation->dir->point() : Point{1, 0});
}

void RaycastingRenderer::drawEntity(PyObject* entity, const View& view, const Rotation& viewRot, int& groundFog) {
    Ref<PositionComponent> position = componentOf<PositionComponent>(entity);
    Ref<SpriteComponent> component = componentOf<SpriteComponent>(entity);
    if (!component->sprite || !component->currentAnimation) return;
    double timeStep = engine ? Convert<double>::from(callByName(engine.raw(), "getTimeStep"_name).raw()) : 0.0;
    advance(*component, *component->currentAnimation, timeStep);

    Fog fog = fogOf(*level);
    if (fog.groundDensity > 0) groundFog = fog.groundAt(component->dist);
    Point place = viewRot(position->pos->point() - view.pos);
    if (!(place.x > 0)) return;  // behind the camera
    double halfHeight = std::trunc(view.scale() / place.x);
    if (halfHeight == 0) raise(PyExc_ZeroDivisionError, "float division");
    if (!canBeDrawn(*component) || !holds(view)) return;
    SpriteFrame frame = frameOf(*component, fog.at(component->dist), groundFog);
    SpriteArea area = spriteArea(frame, view, place, halfHeight);
    MutableImage image = target->mutableImage();
    if (drawsByVectors() && fog.isUsable() && frame.sheet.pixels != image.pixels)
        drawSpriteByVectors(vectorTargets()[kernels], frame, fog, area, rayHits, place.x, image);
    else drawSprite(frame, fog, area, rayHits, place.x, image);
}

void RaycastingRenderer::renderSprites(int horizon, int width, int height) {
    pass("zelvarine.RaycastingRenderer.renderSprites"_name, [&] {
        View view = viewOf(horizon, width, height);
        Rotation viewRot = viewRotation(view.dir);
        Ref<List> members = entities;
        forEach(members.raw(), [&](PyObject* entity) { measure(entity, view); });
        sortByDistance();
        int groundFog = 0;  // where there is none, the last one stays
        forEach(members.raw(), [&](PyObject* entity) { drawEntity(entity, view, viewRot, groundFog); });
    });
}

}  // namespace zv
