#include "collision/movementsystem.hpp"

#include "core/numbers.hpp"
#include "core/ray.hpp"
#include "resources/entity/ecs.hpp"

namespace zv {

void MovementSystem::eachRef(RefVisitor& visit) {
    AbstractSystem::eachRef(visit);
    visit(level);
    visit(bodies);
}

void MovementSystem::init(Ref<Level> newLevel) {
    initTypes({&typeOf<PositionComponent>, &typeOf<VelocityComponent>});
    level = std::move(newLevel);
    bodies = make<CollisionBodySystem>();
    bodies->init();
}

void MovementSystem::setEngine(Ref<Engine> newEngine) {
    AbstractSystem::setEngine(newEngine);
    if (Ref<CollisionBodySystem> held = bodies) call<&AbstractSystem::setEngine>(*held, newEngine);
}

// The bodies come and go with the system that needs them.
void MovementSystem::setEcs(Ref<Ecs> newEcs) {
    Ref<CollisionBodySystem> held = bodies;
    if (Ref<Ecs> old = ecs; old && held) call<&Ecs::removeSystem>(*old, held.raw());
    AbstractSystem::setEcs(std::move(newEcs));
    held = bodies;
    if (Ref<Ecs> now = ecs; now && held) call<&Ecs::addSystem>(*now, held.raw());
}

// A kick decays in a straight line, whatever its size.
static Point braked(Point impulse, double loss) {
    constexpr double standstill = 0.0001;
    double speed = length(impulse);
    if (!(speed > standstill)) return {0, 0};
    Point braking = Point{impulse.x / speed, impulse.y / speed} * loss;
    return length(braking) > speed ? Point{0, 0} : impulse - braking;
}

void MovementSystem::update(double timeStep) {
    BodyCache cache(bodies);
    Ref<> walked = listCopy(entities);
    forEach(walked.raw(), [&](PyObject* entity) {
        if (!isOverridden<&MovementSystem::updateEntity>(self())) return moveEntity(entity, timeStep, cache);
        callByName(self(), signatureOf<&MovementSystem::updateEntity>.name, entity, timeStep);
        cache.forget();
    });
}

void MovementSystem::updateEntity(PyObject* entity, double timeStep) {
    BodyCache cache(bodies);
    moveEntity(entity, timeStep, cache);
}

void MovementSystem::moveEntity(PyObject* entity, double timeStep, BodyCache& cache) {
    Ref<PositionComponent> position;
    Ref<VelocityComponent> velocity;
    Ref<CollisionComponent> collision;
    if (!readKnown(entity, position, velocity, collision)) {
        position = componentOf<PositionComponent>(entity);
        velocity = componentOf<VelocityComponent>(entity);
        collision = componentOf<CollisionComponent>(entity);
        cache.forget();
    }
    cache.beginMover();
    Vector2& impulse = *velocity->impulse;
    Point kick = braked(impulse.point(), timeStep * std::fabs(velocity->friction));
    impulse.assign(kick);
    cache.moved(impulse);
    Point movement = (velocity->velocity->point() + kick) * timeStep;
    if (collision) return moveWithCollisionDetection(entity, *position, *collision, movement, cache);
    Ref<Vector2> pos = position->pos;
    if (Py_TYPE(pos->self()) == &typeOf<Vector2>) {
        pos->assign(pos->point() + movement);
        cache.moved(*pos);
    } else {
        call<&Vector2::add>(*pos, *makeVector(movement));
        cache.forget();
    }
}

void MovementSystem::moveWithCollisionDetection(
    PyObject* entity, PositionComponent& position, CollisionComponent& collision, Point movement, BodyCache& cache) {
    Move move{movement, position.pos->point() + movement, collision.radius};
    pushOutOfBodies(entity, move, position, collision, cache);
    pushOffWalls(entity, move, position, collision, cache);
    Vector2& pos = *position.pos;
    pos.assign(move.target);
    cache.moved(pos);
}

// One way: the mover's ignored flags are looked up in the other body.
static bool isIgnored(Ref<List> ignoreFlags, Ref<List> otherFlags, BodyCache& cache) {
    if (!otherFlags) return false;
    bool runsScripts = !areWords(ignoreFlags) || !areWords(otherFlags);
    bool found = false;
    forEach(ignoreFlags.raw(), [&](PyObject* flag) { found = found || contains(otherFlags.raw(), flag); });
    if (runsScripts) cache.forget();
    return found;
}

void MovementSystem::pushOutOfBodies(
    PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision, BodyCache& cache) {
    auto next = [&](size_t number) {
        move.radius = collision.radius;  // scripts may have changed it
        return cache.next(number, move, collision);
    };
    for (size_t number = next(0); number < cache.size(); number = next(number + 1)) {
        Ref<> other = cache.entity(number);
        Ref<CollisionComponent> otherCollision = componentOf<CollisionComponent>(other.raw());
        if (otherCollision.get() == &collision) continue;
        bool ignores = collision.ignoreFlags && PyList_GET_SIZE(collision.ignoreFlags.raw()) > 0;
        if (ignores && isIgnored(collision.ignoreFlags, otherCollision->hasFlags, cache)) continue;
        Ref<PositionComponent> otherPosition = componentOf<PositionComponent>(other.raw());
        move.radius = collision.radius;
        Point center = otherPosition->pos->point();
        if (!move.overlaps(center, otherCollision->radius)) continue;
        if (!otherCollision->isOnlyTrigger) move.pushOutOf(center, otherCollision->radius, position.pos->point());
        fireCollision(entity, other.raw(), cache);
    }
}

// Whether all cells that a circle touches are empty.
static bool isClear(const Grid& grid, Point center, double radius) {
    double reach = radius + 0.01;  // more than any rounding
    int left = std::max(truncate(center.x - reach), 0), right = std::min(truncate(center.x + reach), grid.width - 1);
    int top = std::max(truncate(center.y - reach), 0), bottom = std::min(truncate(center.y + reach), grid.height - 1);
    for (int y = top; y <= bottom; y++)
        for (int x = left; x <= right; x++)
            if (grid.cell(x, y)[cellBlock] != blockEmpty) return false;
    return true;
}

// Eight rays look for walls from where the mover came. A push goes along its ray, so that what is parallel to
// a wall stays: sliding needs no code of its own.
void MovementSystem::pushOffWalls(
    PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision, BodyCache& cache) {
    constexpr double s = diagonalUnit;
    static constexpr Point directions[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}, {s, s}, {-s, -s}, {-s, s}, {s, -s}};
    Point origin = position.pos->point();
    // Mostly no wall is near. To be sure of it for a large body would take more than its rays.
    if (Ref<Level> walls = level; walls && collision.radius < 2 && isClear(walls->grid(), origin, collision.radius))
        return;
    RayHit hit;
    for (Point dir : directions) {
        Ref<Level> walls = level;
        if (!walls) return;
        traceGridRay(walls->grid(), origin, dir, hit, collision.radius);
        if (hit.outOfBounds || !(hit.dist < collision.radius)) continue;
        double depth = collision.radius - length(hit.pos - position.pos->point());  // from where a handler put it
        move.target = move.target - dir * depth;
        fireCollision(entity, nullptr, cache);
    }
}

void MovementSystem::fireCollision(PyObject* entity, PyObject* other, BodyCache& cache) {
    Ref<Engine> listening = engine;
    if (!listening) return;
    checkType<Entity>(entity);  // no event tells of others, heard or not
    if (other) checkType<Entity>(other);
    if (!native<EventHub>(listening.raw())->isHeard(classOf<CollisionEvent>())) return;
    callByName(listening.raw(), "fireEvent"_name, make<CollisionEvent>(entity, other));
    cache.forget();
}

void declareMovementSystem(Module& module) {
    Class<CollisionEvent, Event>("zelvarine.CollisionEvent",
        "An entity has run into something: `entity1` moved, `entity2` is the body that it ran into, or None for\n"
        "a wall.")
        .init<&CollisionEvent::entity1, &CollisionEvent::entity2>({{"entity1"}, {"entity2"}})
        .readonly<&CollisionEvent::entity1>("entity1", "the entity that moved")
        .readonly<&CollisionEvent::entity2>("entity2", "the body that it ran into, or None for a wall")
        .addTo(module.raw());
    Class<MovementSystem, AbstractSystem>("zelvarine.MovementSystem",
        "Moves all entities with a PositionComponent and a VelocityComponent. Those with a CollisionComponent are\n"
        "kept out of bodies and of the walls of `level`, and every collision fires a CollisionEvent.\n\n"
        "The system brings a CollisionBodySystem of its own into the Ecs that it is added to. Without a level\n"
        "there are no walls, without an engine no events.")
        .init<&MovementSystem::init>({{"level"}})
        .method<&MovementSystem::update>("update", {{"timeStep"}}, "Moves all members; `timeStep` is in seconds.")
        .method<&MovementSystem::updateEntity>("_updateEntity", {{"entity"}, {"timeStep"}},
            "Moves one entity by its velocity and impulse; `timeStep` is in seconds.")
        .method<&MovementSystem::setEcs>(
            "_setEcs", {{"ecs"}}, "Takes the collision bodies along from the old Ecs to the new one.")
        .method<&MovementSystem::setEngine>(
            "_setEngine", {{"engine", Required{}, "Engine or None"}}, "Tells the collision bodies, too.")
        .property<&MovementSystem::level>("_level", "the level whose blocks are the walls")
        .property<&MovementSystem::bodies>("_cbs", "the collision bodies, a CollisionBodySystem")
        .readonly<&MovementSystem::bodies>("collisionBodySystem", "the collision bodies, a CollisionBodySystem")
        .addTo(module.raw());
}

}  // namespace zv
