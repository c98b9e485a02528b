// SPDX-License-Identifier: MIT
// What the level generators and checkers of the three games share: levels whose records are
// fixed in advance, the collection of failed facts, and the seeded random draws.
#pragma once

#include <cstdint>
#include <ostream>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// A level whose record is fixed in advance: its index and its bytes, rows top to bottom.
struct FixedLevel {
    int32_t index;
    std::string_view record;
};

// What a game's checker finds: whether every fact about its store holds, and how hard each level is.
struct StoreVerdict {
    bool ok = false;
    std::vector<double> difficulty;
};

// The fixed level at that index, or nullptr.
const FixedLevel *fixedLevelAt(std::span<const FixedLevel> fixed, int32_t index);

// Collects the facts that fail, to be printed after a game's table.
class Failures {
public:
    void expect(bool holds, const std::string &failure);
    bool none() const { return lines_.empty(); }
    void print(std::ostream &out) const;

private:
    std::vector<std::string> lines_;
};

// Fails every fixed level whose record the store does not hold at its index.
void expectFixedLevels(std::string_view store, size_t recordSize, std::span<const FixedLevel> fixed,
                       Failures &failures);

// Writes the records one after the other, nothing else; false when the file cannot be written.
bool writeLevels(const std::string &path, const std::vector<std::string> &levels);

// "level 4" or "levels 0, 1".
std::string levelList(const std::vector<int32_t> &levels);

// A number from 0 to n - 1, mapped from the generator's raw output so that it does not depend on
// the standard library's distributions.
int32_t below(std::mt19937 &rng, int32_t n);

// A number from 0 to bound - 1, drawn without bias by rejecting the generator's top outputs. The
// stones generator draws with it, so its store depends on it as it is.
uint32_t belowWithoutBias(std::mt19937 &rng, uint32_t bound);

template <typename T>
void shuffle(std::vector<T> &items, std::mt19937 &rng)
{
    for (int32_t i = static_cast<int32_t>(items.size()) - 1; i > 0; --i)
        std::swap(items[i], items[below(rng, i + 1)]);
}
