#include "ui/threeslice.hpp"

#include "core/numbers.hpp"
#include "ui/pieces.hpp"

namespace zv {

void blitThreeSlice(
    const Canvas& canvas, const Ref<Texture>& tileset, const Ref<>& table, const Axis& along, const UIWidget& bar) {
    const Axis& across = along.other();
    int64_t source = numberIn(table, along.startName), place = bar.*along.position;
    int sourceAcross = numberIn(table, across.startName), placeAcross = bar.*across.position;
    int first = numberIn(table, along.firstName), thickness = numberIn(table, across.lengthName);

    auto piece = [&](int length) { return along.rect(source, sourceAcross, length, thickness); };
    auto blitAt = [&](int64_t at, int length) {
        SDL_Rect target = along.rect(at, placeAcross, 0, 0);
        canvas.blit(tileset, piece(length), target.x, target.y);
    };
    blitAt(place, first);
    source += first;
    place += first;

    int middle = numberIn(table, "middle"_name), last = numberIn(table, along.lastName);
    if (middle == 0) raise(PyExc_ZeroDivisionError, "float division");
    int64_t room = int64_t{bar.*along.size} - first - last;
    int64_t count = truncateFar(static_cast<double>(room) / middle);
    if (middle > 0) {
        // Only the tiles that can be seen: a script may make a bar of 2 ** 31 tiles.
        int64_t low = canvas.open().*along.start, high = low + canvas.open().*along.length;
        int64_t from = std::max<int64_t>(0, (low - place) / middle), to = std::min(count, (high - place) / middle + 1);
        for (int64_t k = from; k < to; k++) blitAt(place + k * middle, middle);
    }
    int64_t rest = room - count * middle;
    if (rest > 0)
        canvas.blitScaled(tileset, piece(middle), along.rect(place + count * middle, placeAcross, rest, thickness));
    source += middle;
    blitAt(place + room, last);
}

void addThreeSlice(Look& look, const Ref<>& table, const Axis& along) {
    const Axis& across = along.other();
    look.addNumbers(table, along.startName, across.startName, along.firstName, across.lengthName, along.lastName);
    if (look.addNumber(table, "middle"_name) == 0) look.isPlain = false;  // which raises
}

}  // namespace zv
