// The components that most entities have: position, velocity, rotation, collision.
#pragma once
#include "geometryMath.hpp"

namespace zv {

struct PositionComponent : Object {
    Ref<Vector2> pos;

    void eachRef(RefVisitor& visit) override { visit(pos); }

    void init(Ref<Vector2> newPos);
    double getX() const { return pos->x; }
    double getY() const { return pos->y; }
    void setX(double v) { pos->x = v; }
    void setY(double v) { pos->y = v; }
    void loadFromDict(PyObject* level, PyObject* input);
    Ref<> dumpToDict(PyObject* level) const;
};

struct VelocityComponent : Object {
    Ref<Vector2> velocity, impulse;
    double friction = 2.0;  // units of impulse lost per second

    void eachRef(RefVisitor& visit) override {
        visit(velocity);
        visit(impulse);
    }

    void init(Ref<Vector2> newVelocity, Ref<Vector2> newImpulse, double newFriction);
    double getX() const { return velocity->x; }
    double getY() const { return velocity->y; }
    void setX(double v) { velocity->x = v; }
    void setY(double v) { velocity->y = v; }
    void loadFromDict(PyObject* level, PyObject* input);
    Ref<> dumpToDict(PyObject* level) const;
};

struct RotationComponent : Object {
    Ref<Vector2> dir;

    void eachRef(RefVisitor& visit) override { visit(dir); }

    void init(Ref<Vector2> newDir);
    void loadFromDict(PyObject* level, PyObject* input);
    Ref<> dumpToDict(PyObject* level) const;
};

struct CollisionComponent : Object {
    double radius = 0.25;
    bool isOnlyTrigger = false;
    Ref<List> hasFlags, ignoreFlags;

    void eachRef(RefVisitor& visit) override {
        visit(hasFlags);
        visit(ignoreFlags);
    }

    void init(double newRadius, bool onlyTrigger, std::optional<Ref<List>> newHasFlags,
        std::optional<Ref<List>> newIgnoreFlags);
    int getIsOnlyTrigger() const { return isOnlyTrigger; }
    void setIsOnlyTrigger(bool v) { isOnlyTrigger = v; }
    void loadFromDict(PyObject* level, PyObject* input);
    Ref<> dumpToDict(PyObject* level) const;
};

void declareBasicComponents(Module&);

}  // namespace zv
