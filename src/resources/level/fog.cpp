// Fog: colors and densities, and how the description of a level sets them.
#include "binding/items.hpp"
#include "resources/color.hpp"
#include "resources/level.hpp"

namespace zv {

FogColor FogColor::of(PyObject* components) {
    std::vector<Ref<>> channels = unpack(components, 3);
    for (Ref<>& channel : channels) channel = Ref<>::steal(PyNumber_Index(channel.raw()));
    return FogColor(colorNumber(channels[0].raw(), channels[1].raw(), channels[2].raw(), toPython(255).raw()));
}

std::tuple<int, int, int> FogColor::components() const {
    unsigned long bits = PyLong_AsUnsignedLongMask(number.raw());
    return {static_cast<int>(bits >> 16 & 0xFF), static_cast<int>(bits >> 8 & 0xFF), static_cast<int>(bits & 0xFF)};
}

bool FogColor::isPixel() const {
    int overflow;
    long long value = PyLong_AsLongLongAndOverflow(number.raw(), &overflow);
    return !overflow && value >= 0 && value <= UINT32_MAX;
}

void Level::loadFogSettings() {
    unraisable("zelvarine.Level._loadFogSettings"_name, [&] {
        PyObject* settings = metadata.raw();
        fogColor = hasItem(settings, "fogColor") ? FogColor::of(item(settings, "fogColor").raw()) : defaultFogColor();
        groundFogColor = hasItem(settings, "groundFogColor") ? FogColor::of(item(settings, "groundFogColor").raw())
                                                             : defaultGroundFogColor();
        fogDensity = itemOr(settings, "fogDensity", defaultFogDensity);
        groundFogDensity = itemOr(settings, "groundFogDensity", defaultGroundFogDensity);
    });
}

}  // namespace zv
