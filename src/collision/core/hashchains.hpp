// A hash table of numbers without its keys, which whoever asks compares.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zv {

class HashChains {
public:
    // Empties the table, and makes room for the numbers below `count`.
    void reset(size_t count) {
        int bits = static_cast<int>(std::bit_width(count | 1));
        shift = 64 - bits;
        first.assign(size_t{1} << bits, none);
        next.resize(count);
    }
    void insert(uint64_t key, size_t number) {
        size_t& head = first[bucketOf(key)];
        next[number] = head;
        head = number;
    }
    void remove(uint64_t key, size_t number) {
        size_t* link = &first[bucketOf(key)];
        while (*link != number) link = &next[*link];
        *link = next[number];
    }
    // Visits the numbers under that key, in no order, and some of other keys.
    template <class F> void visit(uint64_t key, F&& visitor) const {
        for (size_t number = first[bucketOf(key)]; number != none; number = next[number]) visitor(number);
    }

private:
    static constexpr size_t none = SIZE_MAX;

    size_t bucketOf(uint64_t key) const { return key * 0x9E3779B97F4A7C15 >> shift; }

    int shift = 63;
    std::vector<size_t> first, next;
};

}  // namespace zv
