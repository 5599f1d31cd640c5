#include "collision/movementsystem.hpp"

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
static void brake(Vector2& impulse, double loss) {
    constexpr double standstill = 0.0001;
    double speed = impulse.getLength();
    if (!(speed > standstill)) return impulse.assign({0, 0});
    Point braking = Point{impulse.x / speed, impulse.y / speed} * loss;
    impulse.assign(length(braking) > speed ? Point{0, 0} : impulse.point() - braking);
}

void MovementSystem::update(double timeStep) {
    // A subclass may run code of its own between two movers.
    if (Py_TYPE(self()) != &typeOf<MovementSystem>) return AbstractSystem::update(timeStep);
    BodyCache cache(bodies);
    Ref<> walked = listCopy(entities);
    forEach(walked.raw(), [&](PyObject* entity) { moveEntity(entity, timeStep, cache); });
}

void MovementSystem::updateEntity(PyObject* entity, double timeStep) {
    BodyCache cache(bodies);
    moveEntity(entity, timeStep, cache);
}

void MovementSystem::moveEntity(PyObject* entity, double timeStep, BodyCache& cache) {
    Ref<PositionComponent> position = componentOf<PositionComponent>(entity);
    Ref<VelocityComponent> velocity = componentOf<VelocityComponent>(entity);
    Ref<CollisionComponent> collision = componentOf<CollisionComponent>(entity);
    if (!isNative(entity) || !cache.areNative()) cache.forget();
    Vector2& impulse = *velocity->impulse;
    brake(impulse, timeStep * std::fabs(velocity->friction));
    Point movement = (velocity->velocity->point() + impulse.point()) * timeStep;
    if (collision) return moveWithCollisionDetection(entity, *position, *collision, movement, cache);
    Ref<Vector2> pos = position->pos;
    call<&Vector2::add>(*pos, *makeVector(movement));
    if (Py_TYPE(pos.raw()) != &typeOf<Vector2>) cache.forget();
}

void MovementSystem::moveWithCollisionDetection(
    PyObject* entity, PositionComponent& position, CollisionComponent& collision, Point movement, BodyCache& cache) {
    Point from = position.pos->point();
    Move move{from, movement, from + movement, collision.radius};
    pushOutOfBodies(entity, move, position, collision, cache);
    pushOffWalls(entity, move, position, collision, cache);
    position.pos->assign(move.target);
}

// Words are compared without running a script.
static bool areWords(PyObject* flags) {
    if (!PyList_CheckExact(flags)) return false;
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(flags); i++)
        if (!PyUnicode_CheckExact(PyList_GET_ITEM(flags, i))) return false;
    return true;
}

// One way: the mover's ignored flags are looked up in the other body.
static bool isIgnored(Ref<List> ignoreFlags, Ref<List> otherFlags, BodyCache& cache) {
    if (!otherFlags) return false;
    bool runsScripts = !areWords(ignoreFlags.raw()) || !areWords(otherFlags.raw());
    bool found = false;
    forEach(ignoreFlags.raw(), [&](PyObject* flag) { found = found || contains(otherFlags.raw(), flag); });
    if (runsScripts) cache.forget();
    return found;
}

void MovementSystem::pushOutOfBodies(
    PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision, BodyCache& cache) {
    auto lookAgain = [&] {  // scripts may have moved the mover, too
        move.from = position.pos->point();
        move.radius = collision.radius;
    };
    for (size_t i = 0; i < cache.bodies().size(); i++) {
        const BodyCache::Body& known = cache.bodies()[i];
        if (known.collision.get() == &collision) continue;
        // Most bodies are far away; flags come before that only if there are any.
        bool ignores = collision.ignoreFlags && PyList_GET_SIZE(collision.ignoreFlags.raw()) > 0;
        if (!ignores && !move.overlaps(known.position->pos->point(), known.collision->radius)) continue;
        BodyCache::Body other = known;
        if (ignores && isIgnored(collision.ignoreFlags, other.collision->hasFlags, cache)) continue;
        lookAgain();
        if (!move.overlaps(other.position->pos->point(), other.collision->radius)) continue;
        if (!other.collision->isOnlyTrigger) move.pushOutOf(other.position->pos->point(), other.collision->radius);
        fireCollision(entity, other.entity.raw(), cache);
        lookAgain();
    }
}

// Eight rays look for walls from where the mover came. A push goes along its ray, so that what is parallel to
// a wall stays: sliding needs no code of its own.
void MovementSystem::pushOffWalls(
    PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision, BodyCache& cache) {
    constexpr double s = diagonalUnit;
    static constexpr Point directions[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}, {s, s}, {-s, -s}, {-s, s}, {s, -s}};
    Point origin = position.pos->point();
    RayHit hit;
    for (Point dir : directions) {
        Ref<Level> walls = level;
        if (!walls) return;
        traceGridRay(walls->grid(), origin, dir, hit);
        if (hit.outOfBounds || !(hit.dist < collision.radius)) continue;
        double depth = collision.radius - length(hit.pos - position.pos->point());  // from where a handler put it
        move.target = move.target - dir * depth;
        fireCollision(entity, nullptr, cache);
    }
}

void MovementSystem::fireCollision(PyObject* entity, PyObject* other, BodyCache& cache) {
    Ref<Engine> listening = engine;
    if (!listening) return;
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
