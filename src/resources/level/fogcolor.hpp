// A fog color as scripts and level files give it.
#pragma once
#include "binding/module.hpp"

namespace zv {

// The number 0xFFRRGGBB. Components beyond 255 run into their neighbours and negative ones are
// possible, so it need not be a pixel.
class FogColor {
public:
    explicit FogColor(uint32_t pixel) : number(toPython(pixel)) {}
    // From exactly three integers: red, green, blue.
    static FogColor of(PyObject* components);

    std::tuple<int, int, int> components() const;
    bool isPixel() const;
    // The pixel; raises OverflowError if the number is none.
    uint32_t word() const { return Convert<uint32_t>::from(number.raw()); }

private:
    explicit FogColor(Ref<> n) : number(std::move(n)) {}
    Ref<> number;
};

}  // namespace zv
