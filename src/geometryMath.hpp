// The two-dimensional vector of positions, directions and velocities.
#pragma once
#include "binding/class.hpp"
#include "binding/module.hpp"
#include "core/point.hpp"

namespace zv {

struct Vector2 : Object {
    double x = 0, y = 0;

    void set(const Vector2& other);
    void add(const Vector2& other);
    void sub(const Vector2& other);
    void scale(PyObject* factor);
    void rotate(double angle);
    void negate();
    void normalize();
    Ref<Vector2> copy() const;
    double getLength() const { return length(point()); }
    double getDegrees() const;
    double angleTo(const Vector2& other) const;
    double angleToInDegrees(const Vector2& other) const;
    Ref<Vector2> plus(const Vector2& other) const;
    Ref<Vector2> minus(const Vector2& other) const;
    Ref<> times(PyObject* other) const;
    std::string text() const;

    Point point() const { return {x, y}; }
    void assign(Point p) {
        x = p.x;
        y = p.y;
    }
};

Ref<Vector2> makeVector(Point p);

void declareVector2(Module&);

}  // namespace zv
