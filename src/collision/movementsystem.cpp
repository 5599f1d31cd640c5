#include "collision/movementsystem.hpp"

#include "core/ray.hpp"
#include "resources/entity/ecs.hpp"

namespace zv {

void CollisionEvent::init(Ref<Entity> mover, Ref<Entity> other) {
    Event::init();
    entity1 = std::move(mover);
    entity2 = std::move(other);
}

void MovementSystem::eachRef(RefVisitor& visit) {
    AbstractSystem::eachRef(visit);
    visit(level);
    visit(bodies);
    for (Body& body : knownBodies) {
        visit(body.entity);
        visit(body.position);
        visit(body.collision);
    }
}

void MovementSystem::init(Ref<Level> newLevel) {
    Ref<CollisionBodySystem> newBodies = make<CollisionBodySystem>();
    newBodies->init();
    initTypes({&typeOf<PositionComponent>, &typeOf<VelocityComponent>});
    level = std::move(newLevel);
    bodies = std::move(newBodies);
}

void MovementSystem::setEngine(Ref<Engine> newEngine) {
    AbstractSystem::setEngine(newEngine);
    if (Ref<CollisionBodySystem> held = bodies) call<&AbstractSystem::setEngine>(*held, newEngine);
}

// The bodies come and go with the system that needs them.
void MovementSystem::setEcs(Ref<Ecs> newEcs) {
    Ref<CollisionBodySystem> held = bodies;
    if (Ref<Ecs> old = ecs; old && held) call<&Ecs::removeSystem>(*old, held.raw());
    AbstractSystem::setEcs(newEcs);
    if (newEcs && held) call<&Ecs::addSystem>(*newEcs, held.raw());
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
    struct Scope {
        MovementSystem& system;
        explicit Scope(MovementSystem& s) : system(s) {
            system.bodiesKnown = false;
            // A subclass may run code of its own between two movers.
            system.updating = Py_TYPE(system.self()) == &typeOf<MovementSystem>;
        }
        ~Scope() {
            system.updating = system.bodiesKnown = false;
            std::vector<Body>().swap(system.knownBodies);
        }
    } scope(*this);
    AbstractSystem::update(timeStep);
}

const std::vector<MovementSystem::Body>& MovementSystem::currentBodies() {
    if (bodiesKnown) return knownBodies;
    std::vector<Body> current;
    bodiesArePlain = true;
    forEach(Ref<List>(bodies->entities).raw(), [&](PyObject* entity) {
        bodiesArePlain = bodiesArePlain && Py_TYPE(entity) == &typeOf<Entity>;
        current.push_back(
            {Ref<>::borrow(entity), componentOf<PositionComponent>(entity), componentOf<CollisionComponent>(entity)});
    });
    knownBodies.swap(current);
    bodiesKnown = true;
    return knownBodies;
}

void MovementSystem::updateEntity(PyObject* entity, double timeStep) {
    Ref<PositionComponent> position = componentOf<PositionComponent>(entity);
    Ref<VelocityComponent> velocity = componentOf<VelocityComponent>(entity);
    Ref<CollisionComponent> collision = componentOf<CollisionComponent>(entity);
    Vector2 &impulse = *velocity->impulse, &steady = *velocity->velocity;
    brake(impulse, timeStep * std::fabs(velocity->friction));
    Point movement = (steady.point() + impulse.point()) * timeStep;
    if (collision) return moveWithCollisionDetection(entity, *position, *collision, movement);
    Ref<Vector2> pos = position->pos;
    call<&Vector2::add>(*pos, *makeVector(movement));
    if (Py_TYPE(entity) != &typeOf<Entity> || Py_TYPE(pos.raw()) != &typeOf<Vector2>) bodiesKnown = false;
}

void MovementSystem::moveWithCollisionDetection(
    PyObject* entity, PositionComponent& position, CollisionComponent& collision, Point movement) {
    Point from = position.pos->point();
    Move move{from, movement, from + movement, collision.radius};
    pushOutOfBodies(entity, move, position, collision);
    pushOffWalls(entity, move, position, collision);
    position.pos->assign(move.target);
}

// One way: the mover's ignored flags are looked up in the other body.
static bool isIgnored(const Ref<List>& ignoreFlags, const Ref<List>& otherFlags) {
    if (!ignoreFlags || !otherFlags || PyList_GET_SIZE(ignoreFlags.raw()) == 0) return false;
    Ref<List> ignored = ignoreFlags, flags = otherFlags;
    bool found = false;
    forEach(ignored.raw(), [&](PyObject* flag) { found = found || contains(flags.raw(), flag); });
    return found;
}

void MovementSystem::pushOutOfBodies(
    PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision) {
    if (!updating || !bodiesArePlain) bodiesKnown = false;
    for (size_t i = 0; i < currentBodies().size(); i++) {
        const Body& known = knownBodies[i];
        if (known.collision.get() == &collision) continue;
        if (!move.overlaps(known.position->pos->point(), known.collision->radius)) continue;
        Body other = known;  // from here on scripts may run
        if (isIgnored(collision.ignoreFlags, other.collision->hasFlags)) continue;
        if (!other.collision->isOnlyTrigger) move.pushOutOf(other.position->pos->point(), other.collision->radius);
        fireCollision(entity, other.entity.raw());
        move.from = position.pos->point();
        move.radius = collision.radius;
    }
    if (!updating) std::vector<Body>().swap(knownBodies);
}

// Eight rays look for walls from where the mover came. A push goes along its ray, so that what is parallel to
// a wall stays: sliding needs no code of its own.
void MovementSystem::pushOffWalls(
    PyObject* entity, Move& move, PositionComponent& position, CollisionComponent& collision) {
    constexpr double s = diagonalUnit;
    static constexpr Point directions[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}, {s, s}, {-s, -s}, {-s, s}, {s, -s}};
    Point origin = position.pos->point();
    RayHit hit;
    for (Point dir : directions) {
        Ref<Level> walls = level;
        if (!walls) return;
        traceGridRay(walls->grid(), origin, dir, hit);
        if (hit.outOfBounds || !(hit.dist < collision.radius)) continue;
        double depth = collision.radius - length(hit.pos - position.pos->point());
        move.target = move.target - dir * depth;
        fireCollision(entity, nullptr);
    }
}

void MovementSystem::fireCollision(PyObject* entity, PyObject* other) {
    Ref<Engine> listening = engine;
    if (!listening) return;
    bodiesKnown = false;  // handlers may change anything, and move others before and after that
    Ref<CollisionEvent> event = make<CollisionEvent>();
    event->init(Convert<Ref<Entity>>::from(entity), other ? Convert<Ref<Entity>>::from(other) : Ref<Entity>());
    callByName(listening.raw(), "fireEvent"_name, event);
    bodiesKnown = false;
}

void declareMovementSystem(Module& module) {
    Class<CollisionEvent, Event>("zelvarine.CollisionEvent",
        "An entity has run into something: `entity1` moved, `entity2` is the body that it ran into, or None for a wall.")
        .init<&CollisionEvent::init>({{"entity1"}, {"entity2"}})
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
