// Questions of scripts about the level and the last frame: rays and picking.
#include "raycaster/core/sprites.hpp"
#include "raycaster/frame.hpp"
#include "resources/entity/basiccomponents.hpp"
#include "resources/entity/spritecomponent.hpp"

namespace zv {

bool RaycastingRenderer::hasColumn(int x) const { return x >= 0 && x < static_cast<int>(rayHits.size()); }

Ref<Vector2> RaycastingRenderer::castRay(const Vector2& pos, const Vector2& dir) {
    RayHit hit;
    Point ray = dir.point();
    traceGridRay(level->grid(), pos.point(), ray, hit);
    return hit.outOfBounds ? Ref<Vector2>() : makeVector(hit.pos);
}

// The square that stands for an entity: around the projected centre, of the unscaled size, and without the
// sprite pass's pull towards the middle.
static bool squareCovers(Point place, double scale, double horizon, int width, int x, int y) {
    double screenX = std::trunc(width / 2.0 + width * (place.y / place.x));
    double half = std::trunc(scale / place.x);
    double left = std::trunc(screenX - half), top = std::trunc(horizon - half);
    return left <= x && x <= left + 2 * half && top <= y && y <= top + 2 * half;
}

Ref<> RaycastingRenderer::getEntityAtScreenCoords(int x, int y) {
    auto [width, height] = call<&Texture::getSize>(*target);
    double horizon = 0.5 * height + camera->pitch, scale = height / camera->ratio;
    Point cameraPos = camera->pos->point();
    Rotation viewRot = viewRotation(camera->dir->point());
    Ref<List> members = entities;
    forEach(members.raw(), [&](PyObject* entity) {
        Ref<PositionComponent> position = componentOf<PositionComponent>(entity);
        componentOf<SpriteComponent>(entity)->dist = length(cameraPos - position->pos->point());
    });
    sortByDistance();
    if (!hasColumn(x)) return {};
    RayHit wall = rayHits[static_cast<size_t>(x)];
    Ref<> result;
    forEach(members.raw(), [&, width = width](PyObject* entity) {
        Point place = viewRot(componentOf<PositionComponent>(entity)->pos->point() - cameraPos);
        bool hidden = !(place.x > 0) || (!wall.outOfBounds && wall.dist < place.x);
        if (!hidden && squareCovers(place, scale, horizon, width, x, y)) result = Ref<>::borrow(entity);
    });
    return result;
}

Ref<> RaycastingRenderer::cellOrPoint(int x, int y, bool cell) {
    int height = std::get<1>(call<&Texture::getSize>(*target));
    double horizon = 0.5 * height + camera->pitch;
    if (camera->ratio == 0) raise(PyExc_ZeroDivisionError, "float division");
    double scale = height / camera->ratio;
    if (!hasColumn(x)) return {};
    RayHit hit = rayHits[static_cast<size_t>(x)];
    double wallHalf = hit.outOfBounds || hit.dist == 0 ? 0.0 : std::trunc(scale / hit.dist);
    auto flat = [&](CellByte plane, double rows) {
        Point p = hit.rayDir * (scale / rows) + camera->pos->point();
        int face = plane;
        return cell ? toPython(std::tuple(face, truncate(p.x), truncate(p.y))) : toPython(std::tuple(face, p.x, p.y));
    };
    if (y > horizon + wallHalf) return flat(cellFloor, y - horizon);
    if (y < horizon - wallHalf) return flat(cellCeiling, horizon - y);
    return hit.outOfBounds ? Ref<>() : toPython(std::tuple(hit.face, hit.cellX, hit.cellY));
}

Ref<> RaycastingRenderer::getWorldCellByScreenCoords(int x, int y) { return cellOrPoint(x, y, true); }
Ref<> RaycastingRenderer::getWorldPosByScreenCoords(int x, int y) { return cellOrPoint(x, y, false); }

}  // namespace zv
