// What scripts read and write of the cells.
#include "binding/items.hpp"
#include "resources/level.hpp"

#include <cstdio>

namespace zv {

uint8_t& Level::byteAt(int offset, int x, int y) const {
    Grid g = grid();
    if (!g.contains(x, y))
        raise(PyExc_IndexError, "cell (%d, %d) is outside of the level of %d by %d cells", x, y, g.width, g.height);
    if (offset < 0 || offset >= cellBytes)
        raise(PyExc_IndexError, "a cell has no byte %d; use one of the TEXTURE_ constants", offset);
    return g.cell(x, y)[offset];
}

int Level::getBlock(int x, int y) const { return byteAt(cellBlock, x, y); }
void Level::setBlock(int blockType, int x, int y) { byteAt(cellBlock, x, y) = static_cast<uint8_t>(blockType); }

int Level::getTextureIndex(int cardinalDirection, int x, int y) const { return byteAt(cardinalDirection, x, y); }
void Level::setTextureIndex(int textureIndex, int cardinalDirection, int x, int y) {
    byteAt(cardinalDirection, x, y) = static_cast<uint8_t>(textureIndex);
}

Ref<> Level::getTexture(int cardinalDirection, int x, int y) const {
    int index = byteAt(cardinalDirection, x, y);
    Ref<List> held = textures;
    if (index >= lengthOf(held.orNone())) return {};
    return itemAt(held.raw(), index);
}

void Level::printLevel() const { printMap(10); }

void Level::printMap(int columnModulus) const {
    Ref<> glyphs = Module::global("ASCII_CELLS"_name);
    Grid g = grid();  // its size alone: printing runs scripts
    std::string line(4, ' ');
    for (int x = 0; x < g.width; x++) line += std::to_string(x % columnModulus) + ' ';
    print(line);
    for (int y = 0; y < g.height; y++) {
        char number[16];
        std::snprintf(number, sizeof number, "%3d ", y);
        line = number;
        for (int x = 0; x < g.width; x++) {
            Ref<> glyph = itemAt(glyphs.raw(), byteAt(cellBlock, x, y));
            line.append(Convert<std::string_view>::from(glyph.raw())) += ' ';
        }
        print(line);
    }
}

}  // namespace zv
