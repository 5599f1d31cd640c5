#include "resources/entity/basiccomponents.hpp"

#include "binding/items.hpp"

namespace zv {

static constexpr const char* loadDoc =
    "Fills the component from a dict, as level files hold it. `level` is the level that is being loaded.\n"
    "Raises KeyError for a required key that is missing, TypeError for a value of a wrong type.";
static constexpr const char* dumpDoc =
    "The component as a dict, as level files hold it. `level` is the level that is being saved.\n@return(dict)";

static Ref<Vector2> orElse(Ref<Vector2> given, Point fallback) { return given ? given : makeVector(fallback); }

static void load(Ref<Vector2> vector, PyObject* dict) {
    vector->x = Convert<double>::from(item(dict, "x").raw());
    vector->y = Convert<double>::from(item(dict, "y").raw());
}

static DictBuilder dictOf(Point p) { return DictBuilder().set("x", p.x).set("y", p.y); }

void PositionComponent::init(Ref<Vector2> newPos) { pos = orElse(std::move(newPos), {0, 0}); }
void PositionComponent::loadFromDict(PyObject*, PyObject* input) { load(pos, input); }
Ref<> PositionComponent::dumpToDict(PyObject*) const { return dictOf(pos->point()).done(); }

void VelocityComponent::init(Ref<Vector2> newVelocity, Ref<Vector2> newImpulse, double newFriction) {
    velocity = orElse(std::move(newVelocity), {0, 0});
    impulse = orElse(std::move(newImpulse), {0, 0});
    friction = newFriction;
}

void VelocityComponent::loadFromDict(PyObject*, PyObject* input) {
    load(velocity, input);
    friction = itemOr(input, "friction", friction);
    if (hasItem(input, "impulse")) load(impulse, item(input, "impulse").raw());
}

Ref<> VelocityComponent::dumpToDict(PyObject*) const {
    DictBuilder dict = dictOf(velocity->point());
    dict.set("friction", friction);
    if (impulse->x != 0 && impulse->y != 0) dict.set("impulse", dictOf(impulse->point()).done());
    return dict.done();
}

void RotationComponent::init(Ref<Vector2> newDir) { dir = orElse(std::move(newDir), {1, 0}); }
void RotationComponent::loadFromDict(PyObject*, PyObject* input) { load(dir, input); }
Ref<> RotationComponent::dumpToDict(PyObject*) const { return dictOf(dir->point()).done(); }

// The default lists are two objects for the whole process: a change to one reaches every component
// that was made without that argument.
static Ref<List> sharedList(std::optional<Ref<List>> given, PyObject*& shared) {
    if (given) return *given;
    if (!shared) shared = Ref<>::steal(PyList_New(0)).release();
    return Ref<List>::borrow(shared);
}

void CollisionComponent::init(
    double newRadius, bool onlyTrigger, std::optional<Ref<List>> newHasFlags, std::optional<Ref<List>> newIgnoreFlags) {
    static PyObject *noHasFlags, *noIgnoreFlags;
    radius = newRadius;
    isOnlyTrigger = onlyTrigger;
    hasFlags = sharedList(std::move(newHasFlags), noHasFlags);
    ignoreFlags = sharedList(std::move(newIgnoreFlags), noIgnoreFlags);
}

static Ref<List> flagsOf(PyObject* input, const char* key) {
    if (hasItem(input, key)) {
        Ref<> flags = item(input, key);
        if (Convert<bool>::from(flags.raw())) return Convert<Ref<List>>::from(flags.raw());
    }
    return Ref<List>::steal(PyList_New(0));
}

void CollisionComponent::loadFromDict(PyObject*, PyObject* input) {
    radius = itemOr(input, "radius", 0.25);
    isOnlyTrigger = itemOr(input, "isOnlyTrigger", false);
    hasFlags = flagsOf(input, "hasFlags");
    ignoreFlags = flagsOf(input, "ignoreFlags");
}

Ref<> CollisionComponent::dumpToDict(PyObject*) const {
    return DictBuilder()
        .set("radius", radius)
        .set("isOnlyTrigger", isOnlyTrigger)
        .set("hasFlags", hasFlags)
        .set("ignoreFlags", ignoreFlags)
        .done();
}

void declareBasicComponents(Module& module) {
    Class<PositionComponent>("zelvarine.PositionComponent",
        "Where an entity is, in cells. Without `pos` at (0, 0); a given vector is kept, not copied.")
        .init<&PositionComponent::init>({{"pos", None{}}})
        .property<&PositionComponent::getX, &PositionComponent::setX>("x", "pos.x")
        .property<&PositionComponent::getY, &PositionComponent::setY>("y", "pos.y")
        .property<&PositionComponent::pos>({"pos", "_pos"}, "the Vector2 itself, in cells")
        .method<&PositionComponent::loadFromDict>("loadFromDict", {{"level"}, {"input"}}, loadDoc)
        .method<&PositionComponent::dumpToDict>("dumpToDict", {{"level"}}, dumpDoc)
        .addTo(module.raw());
    Class<VelocityComponent>("zelvarine.VelocityComponent",
        "How an entity moves, in cells per second: `velocity` is steady, `impulse` is a kick that the\n"
        "`friction` uses up, by its absolute value in cells per second each second. Without vectors both\n"
        "are (0, 0); given ones are kept, not copied.")
        .init<&VelocityComponent::init>({{"velocity", None{}}, {"impulse", None{}}, {"friction", 2.0}})
        .property<&VelocityComponent::getX, &VelocityComponent::setX>("x", "velocity.x")
        .property<&VelocityComponent::getY, &VelocityComponent::setY>("y", "velocity.y")
        .property<&VelocityComponent::velocity>({"velocity", "_velocity"}, "steady motion, a Vector2")
        .property<&VelocityComponent::impulse>({"impulse", "_impulse"}, "decaying motion, a Vector2")
        .property<&VelocityComponent::friction>({"friction", "_friction"}, "impulse lost per second, float")
        .method<&VelocityComponent::loadFromDict>("loadFromDict", {{"level"}, {"input"}}, loadDoc)
        .method<&VelocityComponent::dumpToDict>("dumpToDict", {{"level"}}, dumpDoc)
        .addTo(module.raw());
    Class<RotationComponent>("zelvarine.RotationComponent",
        "Which way an entity faces. Without `dir` to the east, (1, 0); a given vector is kept, not copied.")
        .init<&RotationComponent::init>({{"dir", None{}}})
        .property<&RotationComponent::dir>({"dir", "_dir"}, "the direction, a Vector2")
        .method<&RotationComponent::loadFromDict>("loadFromDict", {{"level"}, {"input"}}, loadDoc)
        .method<&RotationComponent::dumpToDict>("dumpToDict", {{"level"}}, dumpDoc)
        .addTo(module.raw());
    Class<CollisionComponent>("zelvarine.CollisionComponent",
        "The circle with which an entity collides, its `radius` in cells. A trigger reports collisions\n"
        "without blocking. A mover ignores bodies that have one of its `ignoreFlags` among their\n"
        "`hasFlags`. Given lists are kept, not copied; all components made without a list share one.")
        .init<&CollisionComponent::init>(
            {{"radius", 0.25}, {"isOnlyTrigger", false}, {"hasFlags", Omitted{"[]"}}, {"ignoreFlags", Omitted{"[]"}}})
        .property<&CollisionComponent::radius>({"radius", "_radius"}, "radius of the circle in cells, float")
        .property<&CollisionComponent::isOnlyTrigger>(
            "isOnlyTrigger", "whether the body reports collisions without blocking")
        .property<&CollisionComponent::getIsOnlyTrigger, &CollisionComponent::setIsOnlyTrigger>(
            "_isOnlyTrigger", "isOnlyTrigger as 0 or 1")
        .property<&CollisionComponent::hasFlags>({"hasFlags", "_hasFlags"}, "list of the flags of this body")
        .property<&CollisionComponent::ignoreFlags>(
            {"ignoreFlags", "_ignoreFlags"}, "list of the flags of other bodies that this one ignores")
        .method<&CollisionComponent::loadFromDict>("loadFromDict", {{"level"}, {"input"}}, loadDoc)
        .method<&CollisionComponent::dumpToDict>("dumpToDict", {{"level"}}, dumpDoc)
        .addTo(module.raw());
}

}  // namespace zv
