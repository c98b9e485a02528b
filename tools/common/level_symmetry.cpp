// SPDX-License-Identifier: MIT
#include "level_symmetry.h"

#include <algorithm>
#include <map>

std::string canonicalForm(std::string_view record, const LevelLayout &layout)
{
    struct Cell {
        int32_t x, y;
        char value;
    };
    std::vector<Cell> cells;
    for (int32_t i = 0; i < layout.width * layout.height; ++i)
        if (record[i] != '0') cells.push_back({i % layout.width, i / layout.width, record[i]});

    std::string best;
    const int32_t transforms = layout.symmetries == Symmetries::Square ? 8 : 4;
    for (int32_t t = 0; t < transforms; ++t) {
        // Bit 0 mirrors x, bit 1 mirrors y, bit 2 swaps the axes.
        std::vector<Cell> moved;
        for (const Cell &c : cells) {
            Cell m{t & 1 ? -c.x : c.x, t & 2 ? -c.y : c.y, c.value};
            if (t & 4) std::swap(m.x, m.y);
            moved.push_back(m);
        }
        int32_t left = 0, top = 0, right = -1, bottom = -1;
        for (size_t i = 0; i < moved.size(); ++i) {
            left = i ? std::min(left, moved[i].x) : moved[i].x;
            right = i ? std::max(right, moved[i].x) : moved[i].x;
            top = i ? std::min(top, moved[i].y) : moved[i].y;
            bottom = i ? std::max(bottom, moved[i].y) : moved[i].y;
        }
        const int32_t width = right - left + 1;
        std::string body(static_cast<size_t>(width * (bottom - top + 1)), '0');
        for (const Cell &c : moved) body[(c.y - top) * width + c.x - left] = c.value;
        if (layout.relabel) body = layout.relabel(body);
        std::string form = std::to_string(width) + ':' + body;
        if (t == 0 || form < best) best = std::move(form);
    }
    return best;
}

std::vector<std::pair<int32_t, int32_t>> repeatedLevels(std::string_view store, const LevelLayout &layout)
{
    const size_t size = static_cast<size_t>(layout.width * layout.height);
    std::map<std::string, int32_t> first;
    std::vector<std::pair<int32_t, int32_t>> repeats;
    for (int32_t n = 0; static_cast<size_t>(n + 1) * size <= store.size(); ++n) {
        const auto [at, fresh] = first.emplace(canonicalForm(store.substr(n * size, size), layout), n);
        if (!fresh) repeats.emplace_back(n, at->second);
    }
    return repeats;
}
