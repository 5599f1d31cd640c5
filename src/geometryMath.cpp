#include "geometryMath.hpp"

namespace zv {

Ref<Vector2> makeVector(Point p) {
    Ref<Vector2> v = make<Vector2>();
    v->assign(p);
    return v;
}

// coordinate * factor for any Python number, with the words of Python's own TypeError.
static double product(double coordinate, PyObject* factor) {
    if (PyFloat_Check(factor) || PyLong_Check(factor)) return coordinate * Convert<double>::from(factor);
    return Convert<double>::from(Ref<>::steal(PyNumber_Multiply(toPython(coordinate).raw(), factor)).raw());
}

void Vector2::set(const Vector2& other) { assign(other.point()); }
void Vector2::add(const Vector2& other) { assign(point() + other.point()); }
void Vector2::sub(const Vector2& other) { assign(point() - other.point()); }
void Vector2::scale(PyObject* factor) {
    x = product(x, factor);
    y = product(y, factor);
}

void Vector2::rotate(double angle) { assign(Rotation(angle * degreesToRadians)(point())); }

void Vector2::negate() { assign({-x, -y}); }

void Vector2::normalize() {
    double l = getLength();
    if (l != 0.0) assign({x / l, y / l});
}

Ref<Vector2> Vector2::copy() const { return makeVector(point()); }
double Vector2::getDegrees() const { return std::atan2(y, x) * radiansToDegrees; }

double Vector2::angleTo(const Vector2& other) const {
    double lengths = getLength() * other.getLength();
    if (lengths == 0.0) raise(PyExc_ZeroDivisionError, "float division");
    double c = (x * other.x + y * other.y) / lengths;
    if (c > 1) c = 1;  // rounding may leave the domain of acos; NaN passes on to it
    if (c < -1) c = -1;
    return Convert<double>::from(callByName(Module::global("math"_name).raw(), "acos"_name, c).raw());
}

double Vector2::angleToInDegrees(const Vector2& other) const {
    return call<&Vector2::angleTo>(*this, other) * radiansToDegrees;
}

Ref<Vector2> Vector2::plus(const Vector2& other) const { return makeVector(point() + other.point()); }
Ref<Vector2> Vector2::minus(const Vector2& other) const { return makeVector(point() - other.point()); }

Ref<> Vector2::times(PyObject* other) const {
    if (Py_TYPE(other) == &typeOf<Vector2>) {
        Point o = native<Vector2>(other)->point();
        return toPython(x * o.x + y * o.y);
    }
    return toPython(makeVector({product(x, other), product(y, other)}));
}

std::string Vector2::text() const {
    // Python's own "f" format, so that infinities and NaN read as in Python.
    auto formatted = [](double v) {
        char* digits = PyOS_double_to_string(v, 'f', 6, 0, nullptr);
        if (!digits) throw PythonError{};
        std::string result = digits;
        PyMem_Free(digits);
        return result;
    };
    return "Vector2(" + formatted(x) + ", " + formatted(y) + ")";
}

void declareVector2(Module& module) {
    Class<Vector2>("zelvarine.Vector2",
        "A mutable two-dimensional vector of floats.\n\n"
        "`+` and `-` take two vectors and give a new one. `a * b` is the dot product of two vectors,\n"
        "a float; `a * s` with any number `s` on the right is a new, scaled vector.")
        .init<&Vector2::x, &Vector2::y>({{"x"}, {"y"}})
        .method<&Vector2::set>("set", {{"other"}}, "Copies the coordinates of `other`.")
        .method<&Vector2::add>("add", {{"other"}}, "Adds `other` to this vector.")
        .method<&Vector2::sub>("sub", {{"other"}}, "Subtracts `other` from this vector.")
        .method<&Vector2::scale>(
            "scale", {{"factor", Required{}, "number"}}, "Multiplies both coordinates by `factor`.")
        .method<&Vector2::rotate>("rotate", {{"angle"}},
            "Rotates by `angle` degrees, from the positive x axis towards the positive y axis:\n"
            "clockwise on a map, where y grows to the south.")
        .method<&Vector2::negate>("negate", {}, "Changes the sign of both coordinates.")
        .method<&Vector2::normalize>("normalize", {}, "Divides by the length; a vector of length 0 stays as it is.")
        .method<&Vector2::copy>("copy", {}, "A new vector of the same coordinates.")
        .method<&Vector2::getDegrees>(
            "getDegrees", {}, "The angle from the positive x axis, atan2(y, x), in degrees from -180 to 180.")
        .method<&Vector2::angleTo>("angleTo", {{"other"}},
            "The unsigned angle between two vectors, acos of their normalised dot product, in radians\n"
            "from 0 to pi. Raises ZeroDivisionError when one of them has length 0.")
        .method<&Vector2::angleToInDegrees>("angleToInDegrees", {{"other"}}, "`angleTo(other)` in degrees.")
        .repr<&Vector2::text>()
        .binaryOperator<&Vector2::plus>(&PyNumberMethods::nb_add)
        .binaryOperator<&Vector2::minus>(&PyNumberMethods::nb_subtract)
        .binaryOperator<&Vector2::times>(&PyNumberMethods::nb_multiply)
        .property<&Vector2::x>({"x", "_x"}, "x coordinate, float")
        .property<&Vector2::y>({"y", "_y"}, "y coordinate, float")
        .readonly<&Vector2::getLength>("length", "the square root of x*x + y*y, float")
        .addTo(module.raw());
}

}  // namespace zv
