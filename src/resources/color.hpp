// Colors as scripts give them.
#pragma once
#include "binding/module.hpp"

#include <array>

namespace zv {

// Red, green, blue and alpha of a sequence of 3 or 4 numbers; without alpha it is 255. Raises `error` for any
// other length.
template <class T> std::array<T, 4> channelsOf(PyObject* color, PyObject* error, const char* message) {
    Py_ssize_t count = lengthOf(color);
    if (count != 3 && count != 4) raise(error, message);
    std::array<T, 4> channels{0, 0, 0, 255};
    size_t i = 0;
    for (const Ref<>& channel : unpack(color, static_cast<size_t>(count)))
        channels[i++] = Convert<T>::from(channel.raw());
    return channels;
}

// a << 24 | r << 16 | g << 8 | b in Python's own numbers: a channel beyond 255 runs into its neighbour, and none is
// too large.
inline Ref<> colorNumber(PyObject* r, PyObject* g, PyObject* b, PyObject* a) {
    auto shifted = [](PyObject* channel, int bits) {
        return Ref<>::steal(PyNumber_Lshift(channel, toPython(bits).raw()));
    };
    Ref<> number = shifted(a, 24);
    for (const Ref<>& part : {shifted(r, 16), shifted(g, 8), Ref<>::borrow(b)})
        number = Ref<>::steal(PyNumber_Or(number.raw(), part.raw()));
    return number;
}

}  // namespace zv
