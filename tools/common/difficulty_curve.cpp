// SPDX-License-Identifier: MIT
#include "difficulty_curve.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <map>
#include <numeric>
#include <set>
#include <sstream>

namespace {

constexpr size_t kBlock = 20;
constexpr size_t kPerLine = 10;

std::vector<double> ranksOf(const std::vector<double> &values)
{
    std::vector<size_t> order(values.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&values](size_t a, size_t b) { return values[a] < values[b]; });
    std::vector<double> ranks(values.size());
    for (size_t i = 0; i < order.size();) {
        size_t j = i;
        while (j + 1 < order.size() && values[order[j + 1]] == values[order[i]]) ++j;
        for (size_t k = i; k <= j; ++k) ranks[order[k]] = (static_cast<double>(i) + static_cast<double>(j)) / 2;
        i = j + 1;
    }
    return ranks;
}

std::string shown(double value)
{
    if (std::isinf(value)) return "never";
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << value;
    return text.str();
}

} // namespace

double rememberedDifficulty(std::string_view record, double (*measure)(std::string_view record))
{
    static std::map<std::pair<double (*)(std::string_view), std::string>, double> remembered;
    const auto [at, fresh] = remembered.try_emplace({measure, std::string(record)}, 0.0);
    if (fresh) at->second = measure(record);
    return at->second;
}

double rankCorrelationWithIndex(const std::vector<double> &values)
{
    const std::vector<double> ranks = ranksOf(values);
    const double n = static_cast<double>(values.size());
    const double mean = (n - 1) / 2;
    double covariance = 0, spreadOfIndex = 0, spreadOfRanks = 0;
    for (size_t i = 0; i < ranks.size(); ++i) {
        const double index = static_cast<double>(i) - mean;
        covariance += index * (ranks[i] - mean);
        spreadOfIndex += index * index;
        spreadOfRanks += (ranks[i] - mean) * (ranks[i] - mean);
    }
    return spreadOfRanks > 0 ? covariance / std::sqrt(spreadOfIndex * spreadOfRanks) : 0;
}

double medianOf(const std::vector<double> &values, size_t first, size_t last)
{
    std::vector<double> part(values.begin() + static_cast<std::ptrdiff_t>(first),
                             values.begin() + static_cast<std::ptrdiff_t>(last));
    std::sort(part.begin(), part.end());
    const size_t middle = part.size() / 2;
    return part.size() % 2 ? part[middle] : (part[middle - 1] + part[middle]) / 2;
}

void judgeDifficulty(const std::vector<double> &difficulty, std::span<const FixedLevel> fixed, std::string_view unit,
                     std::ostream &out, Failures &failures)
{
    const size_t levels = difficulty.size();
    out << "  difficulty, " << unit << ", level by level:\n";
    for (size_t n = 0; n < levels; ++n) {
        if (n % kPerLine == 0) out << "    " << std::setw(3) << n << ':';
        out << std::setw(8) << shown(difficulty[n]) << (n % kPerLine == kPerLine - 1 || n + 1 == levels ? "\n" : "");
    }
    out << "  median per 20 levels ";
    for (size_t first = 0; first < levels; first += kBlock)
        out << ' ' << shown(medianOf(difficulty, first, std::min(first + kBlock, levels)));
    const double correlation = rankCorrelationWithIndex(difficulty);
    out << "\n  rank correlation with the level index " << std::fixed << std::setprecision(3) << correlation << '\n';
    out.unsetf(std::ios::floatfield);
    std::ostringstream unevenly;
    unevenly << std::fixed << std::setprecision(3) << "the difficulty rises too unevenly: rank correlation "
             << correlation << " with the level index, below " << kLowestRankCorrelation;
    failures.expect(correlation >= kLowestRankCorrelation, unevenly.str());

    const size_t quarter = levels / 4;
    const double firstQuarter = quarter ? medianOf(difficulty, 0, quarter) : 0;
    std::vector<int32_t> easyLate;
    for (size_t n = levels - quarter; n < levels; ++n)
        if (difficulty[n] < firstQuarter && !fixedLevelAt(fixed, static_cast<int32_t>(n)))
            easyLate.push_back(static_cast<int32_t>(n));
    out << "  median of the first quarter " << shown(firstQuarter) << '\n';
    failures.expect(easyLate.empty(), levelList(easyLate) + " of the last quarter " +
                                          (easyLate.size() == 1 ? "is" : "are") +
                                          " easier than the median of the first quarter, " + shown(firstQuarter));
}

double DifficultyAim::at(int32_t place, int32_t places) const
{
    return first * std::pow(last / first, static_cast<double>(place) / (places - 1));
}

bool fillAlongCurve(std::vector<std::string> &levels, const LevelLayout &layout, const DifficultyAim &aim,
                    const std::function<std::string(int32_t place)> &draw,
                    const std::function<double(std::string_view record, double ceiling)> &measure, int32_t mostDraws)
{
    const int32_t places = static_cast<int32_t>(levels.size());
    std::set<std::string> taken;
    std::vector<int32_t> open;
    for (int32_t n = 0; n < places; ++n) {
        if (levels[n].empty()) open.push_back(n);
        else taken.insert(canonicalForm(levels[n], layout));
    }
    std::vector<std::pair<double, std::string>> drawn; // difficulty and record
    for (int32_t n : open) {
        const double wanted = aim.at(n, places), ceiling = wanted * aim.closeEnough;
        for (int32_t attempt = 0;; ++attempt) {
            if (attempt == mostDraws) return false;
            const std::string record = draw(n);
            if (record.empty()) continue;
            std::string form = canonicalForm(record, layout);
            if (taken.count(form) != 0) continue;
            const double difficulty = measure(record, ceiling);
            if (difficulty > ceiling || difficulty < wanted / aim.closeEnough) continue;
            taken.insert(std::move(form));
            drawn.emplace_back(difficulty, record);
            break;
        }
    }
    std::stable_sort(drawn.begin(), drawn.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    for (size_t i = 0; i < open.size(); ++i) levels[open[i]] = drawn[i].second;
    return true;
}
