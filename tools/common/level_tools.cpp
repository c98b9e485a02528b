// SPDX-License-Identifier: MIT
#include "level_tools.h"

#include <algorithm>
#include <fstream>

const FixedLevel *fixedLevelAt(std::span<const FixedLevel> fixed, int32_t index)
{
    const auto found = std::find_if(fixed.begin(), fixed.end(), [index](const FixedLevel &f) { return f.index == index; });
    return found == fixed.end() ? nullptr : &*found;
}

void Failures::expect(bool holds, const std::string &failure)
{
    if (!holds) lines_.push_back(failure);
}

void Failures::print(std::ostream &out) const
{
    for (const std::string &line : lines_) out << "FAILED: " << line << '\n';
}

void expectFixedLevels(std::string_view store, size_t recordSize, std::span<const FixedLevel> fixed,
                       Failures &failures)
{
    for (const FixedLevel &level : fixed) {
        const size_t start = static_cast<size_t>(level.index) * recordSize;
        failures.expect(start + recordSize <= store.size() && store.substr(start, recordSize) == level.record,
                        "level " + std::to_string(level.index) + " differs from its fixed record");
    }
}

bool writeLevels(const std::string &path, const std::vector<std::string> &levels)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    for (const std::string &level : levels) file << level;
    file.close();
    return static_cast<bool>(file);
}

std::string levelList(const std::vector<int32_t> &levels)
{
    std::string text = levels.size() == 1 ? "level " : "levels ";
    for (size_t i = 0; i < levels.size(); ++i) text += (i ? ", " : "") + std::to_string(levels[i]);
    return text;
}

int32_t below(std::mt19937 &rng, int32_t n)
{
    return static_cast<int32_t>((static_cast<uint64_t>(rng()) * static_cast<uint64_t>(n)) >> 32);
}

uint32_t belowWithoutBias(std::mt19937 &rng, uint32_t bound)
{
    const uint32_t limit = std::mt19937::max() - (std::mt19937::max() - bound + 1) % bound;
    uint32_t value = rng();
    while (value > limit) value = rng();
    return value % bound;
}
