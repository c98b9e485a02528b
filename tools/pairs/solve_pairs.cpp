// SPDX-License-Identifier: MIT
#include "solve_pairs.h"

#include "neighbours.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace {

constexpr int32_t kSide = PairBoard::kCotes;
constexpr int32_t kCells = kSide * kSide;

using Cells = std::array<uint8_t, kCells>;

// The cells next to each cell, left, right, above, below, as the model takes them.
struct NeighbourTable {
    std::array<std::array<int8_t, 4>, kCells> cell{};
    std::array<int8_t, kCells> count{};
    NeighbourTable()
    {
        for (int32_t c = 0; c < kCells; ++c) {
            const int32_t x = c % kSide;
            const int32_t y = c / kSide;
            forEachNeighbour(kSide, kSide, x, y, [&](int32_t nx, int32_t ny) {
                cell[c][count[c]++] = static_cast<int8_t>(ny * kSide + nx);
            });
        }
    }
};
const NeighbourTable kNeighbours;

bool touching(int32_t a, int32_t b)
{
    const int32_t d = a > b ? a - b : b - a;
    return d == kSide || (d == 1 && a / kSide == b / kSide);
}

uint8_t turnedForward(uint8_t v)
{
    return PairBoard::points(v) == 4 ? static_cast<uint8_t>(v - 3) : static_cast<uint8_t>(v + 1);
}

uint8_t turnedBack(uint8_t v)
{
    return PairBoard::points(v) == 1 ? static_cast<uint8_t>(v + 3) : static_cast<uint8_t>(v - 1);
}

// Random keys for hashing a position, two independent 64-bit halves per cell and value.
struct PositionKeys {
    std::array<std::array<uint64_t, 128>, kCells> low{};
    std::array<std::array<uint64_t, 128>, kCells> high{};
    PositionKeys()
    {
        uint64_t state = 0x9e3779b97f4a7c15ULL;
        auto next = [&state] {
            uint64_t z = (state += 0x9e3779b97f4a7c15ULL);
            z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
            z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
            return z ^ (z >> 31);
        };
        for (int32_t c = 0; c < kCells; ++c)
            for (int32_t v = 0; v < 128; ++v) {
                low[c][v] = next();
                high[c][v] = next();
            }
    }
};
const PositionKeys kKeys;

struct PositionHash {
    uint64_t low;
    uint64_t high;
    bool operator==(const PositionHash &) const = default;
};

struct HashOfPosition {
    size_t operator()(const PositionHash &h) const { return static_cast<size_t>(h.low); }
};

class PairSearch {
public:
    PairSearch(const Cells &start, int64_t budget) : cells_(start), budget_(budget) {}

    bool run() { return explore(); }
    const std::vector<PairMove> &moves() const { return path_; }

private:
    Cells cells_;
    int64_t budget_;
    std::vector<PairMove> path_;
    std::unordered_set<PositionHash, HashOfPosition> deadEnds_;

    int32_t degree(int32_t c) const
    {
        int32_t d = 0;
        for (int32_t i = 0; i < kNeighbours.count[c]; ++i) d += cells_[kNeighbours.cell[c][i]] != 0;
        return d;
    }

    void turnNeighbours(int32_t c, uint8_t (*turn)(uint8_t))
    {
        for (int32_t i = 0; i < kNeighbours.count[c]; ++i) {
            uint8_t &n = cells_[kNeighbours.cell[c][i]];
            if (n != 0) n = turn(n);
        }
    }

    // Selects a and removes b, as Selectionne3 then Retire3 do; gives the value both had.
    uint8_t play(int32_t a, int32_t b)
    {
        turnNeighbours(a, turnedForward);
        const uint8_t v = cells_[b];
        cells_[b] = 0;
        cells_[a] = 0;
        turnNeighbours(b, turnedForward);
        return v;
    }

    // Puts the pair back as Annule3 does.
    void takeBack(int32_t a, int32_t b, uint8_t v)
    {
        turnNeighbours(b, turnedBack);
        cells_[b] = v;
        turnNeighbours(a, turnedBack);
        cells_[a] = v;
    }

    PositionHash hash() const
    {
        PositionHash h{0, 0};
        for (int32_t c = 0; c < kCells; ++c) {
            if (cells_[c] == 0) continue;
            h.low ^= kKeys.low[c][cells_[c]];
            h.high ^= kKeys.high[c][cells_[c]];
        }
        return h;
    }

    // A tile turns once for each neighbour that leaves before it, so with d neighbours now
    // it can still leave with its pips turned 0 to d times. Two tiles can only ever pair
    // when those reachable pip counts overlap. A tile with no neighbours is frozen.
    bool hopeless() const
    {
        std::array<std::array<int32_t, 4>, 4> reach{};
        std::array<std::array<int32_t, 4>, 4> frozen{};
        std::array<int32_t, 4> moving{};
        std::array<uint8_t, kCells> mask{};
        for (int32_t c = 0; c < kCells; ++c) {
            const uint8_t v = cells_[c];
            if (v == 0) continue;
            const int32_t colour = PairBoard::couleur(v);
            const int32_t d = std::min(degree(c), 3);
            const int32_t first = PairBoard::points(v) - 1;
            for (int32_t k = 0; k <= d; ++k) mask[c] |= static_cast<uint8_t>(1 << ((first + k) % 4));
            for (int32_t p = 0; p < 4; ++p) reach[colour][p] += (mask[c] >> p) & 1;
            if (d == 0) frozen[colour][first] += 1;
            else moving[colour] += 1;
        }
        for (int32_t c = 0; c < kCells; ++c) {
            if (cells_[c] == 0) continue;
            const int32_t colour = PairBoard::couleur(cells_[c]);
            bool partner = false;
            for (int32_t p = 0; p < 4 && !partner; ++p)
                partner = ((mask[c] >> p) & 1) && reach[colour][p] > 1;
            if (!partner) return true;
        }
        // Frozen tiles of one value left over in an odd number each need a moving partner.
        for (int32_t colour = 0; colour < 4; ++colour) {
            int32_t unpaired = 0;
            for (int32_t p = 0; p < 4; ++p) {
                if (frozen[colour][p] % 2 == 0) continue;
                if (reach[colour][p] == frozen[colour][p]) return true;
                ++unpaired;
            }
            if (unpaired > moving[colour]) return true;
        }
        return false;
    }

    struct Candidate {
        int32_t first;
        int32_t second;
        int32_t rank;
    };

    std::vector<Candidate> candidates() const
    {
        std::vector<Candidate> list;
        for (int32_t a = 0; a < kCells; ++a) {
            if (cells_[a] == 0) continue;
            const int32_t colour = PairBoard::couleur(cells_[a]);
            const int32_t degreeA = degree(a);
            for (int32_t b = 0; b < kCells; ++b) {
                if (b == a || cells_[b] == 0 || PairBoard::couleur(cells_[b]) != colour) continue;
                const uint8_t seen = touching(a, b) ? turnedForward(cells_[b]) : cells_[b];
                if (seen == cells_[a]) list.push_back({a, b, degreeA + degree(b)});
            }
        }
        std::stable_sort(list.begin(), list.end(),
                         [](const Candidate &l, const Candidate &r) { return l.rank < r.rank; });
        return list;
    }

    bool explore()
    {
        if (std::all_of(cells_.begin(), cells_.end(), [](uint8_t v) { return v == 0; })) return true;
        if (budget_-- <= 0) return false;
        const PositionHash key = hash();
        if (deadEnds_.count(key) != 0 || hopeless()) return false;
        for (const Candidate &m : candidates()) {
            const uint8_t v = play(m.first, m.second);
            path_.emplace_back(m.first, m.second);
            if (explore()) return true;
            path_.pop_back();
            takeBack(m.first, m.second, v);
            if (budget_ < 0) return false;
        }
        deadEnds_.insert(key);
        return false;
    }
};

Cells cellsOf(const PairBoard &board)
{
    Cells cells{};
    for (int32_t c = 0; c < kCells; ++c) cells[c] = static_cast<uint8_t>(board.tabPions3[c % kSide][c / kSide]);
    return cells;
}

bool coloursEven(const Cells &cells)
{
    std::array<int32_t, 4> count{};
    for (uint8_t v : cells)
        if (v != 0) count[PairBoard::couleur(v)] += 1;
    return std::all_of(count.begin(), count.end(), [](int32_t n) { return n % 2 == 0; });
}

} // namespace

int32_t pairParity(const PairBoard &board)
{
    int32_t p = 0;
    for (int32_t y = 0; y < kSide; ++y) {
        for (int32_t x = 0; x < kSide; ++x) {
            const int32_t v = board.tabPions3[x][y];
            if (v == 0) continue;
            p += PairBoard::points(v);
            if (x + 1 < kSide && board.tabPions3[x + 1][y] != 0) p += 1;
            if (y + 1 < kSide && board.tabPions3[x][y + 1] != 0) p += 1;
        }
    }
    return p;
}

bool playsToEmpty(const PairBoard &level, const std::vector<PairMove> &moves)
{
    PairBoard board = level;
    board.iChoix3 = -1;
    board.iCoup3 = -1;
    for (const auto &[first, second] : moves) {
        if (first < 0 || first >= kCells || second < 0 || second >= kCells || first == second) return false;
        if (board.tabPions3[first % kSide][first / kSide] == 0) return false;
        board.Selectionne3(first % kSide, first / kSide);
        if (!board.Pareil3(second % kSide, second / kSide)) return false;
        board.Retire3(second % kSide, second / kSide);
    }
    return board.Vide3();
}

std::optional<std::vector<PairMove>> solvePairs(const PairBoard &level, int64_t maxPositions)
{
    const Cells start = cellsOf(level);
    if (pairParity(level) % 2 != 0 || !coloursEven(start)) return std::nullopt;
    PairSearch search(start, maxPositions);
    if (!search.run() || !playsToEmpty(level, search.moves())) return std::nullopt;
    return search.moves();
}
