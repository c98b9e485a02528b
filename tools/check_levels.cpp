// SPDX-License-Identifier: MIT
// Checks the three shipped level stores: prints a table of figures and the difficulty of every
// level per game, and fails when any fact about the levels does not hold. Given a picture file, it
// also draws the three difficulty curves into it.
//   check_levels <folder holding niveaux1.dat, niveaux2.dat and niveaux3.dat> [picture.png]
#include "check_pairs.h"
#include "check_stones.h"
#include "check_tiles.h"
#include "difficulty_curve.h"
#include "difficulty_picture.h"

#include <QGuiApplication>

#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>

namespace {

bool readStore(const std::string &path, std::string &bytes)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    bytes.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2 && argc != 3) {
        std::cerr << "usage: check_levels <levels folder> [picture.png]\n";
        return 2;
    }
    const std::string folder = argv[1];
    const struct {
        const char *file;
        StoreVerdict (*check)(std::string_view, std::ostream &);
        std::span<const FixedLevel> fixed;
        const char *title;
        bool logarithmic;
        QColor colour;
    } games[] = {
        {"niveaux1.dat", checkTileLevels, kFixedTileLevels, "Jeu 1: tiles a careful player lays per win", true,
         QColor(214, 120, 40)},
        {"niveaux2.dat", checkStoneLevels, kFixedStoneLevels, "Jeu 2: clicks of the shortest solution", false,
         QColor(60, 120, 200)},
        {"niveaux3.dat", checkPairLevels, kFixedPairLevels, "Jeu 3: pairs a random player removes per win", true,
         QColor(70, 160, 90)},
    };

    bool ok = true;
    std::vector<DifficultyCurve> curves;
    for (const auto &game : games) {
        std::string store;
        if (!readStore(folder + "/" + game.file, store)) {
            std::cout << game.file << ": cannot be read\n";
            ok = false;
            continue;
        }
        std::cout << "== " << game.file << "\n";
        const StoreVerdict verdict = game.check(store, std::cout);
        ok = verdict.ok && ok;
        std::cout << "\n";
        if (verdict.difficulty.empty()) continue;
        std::vector<bool> fixed(verdict.difficulty.size(), false);
        for (const FixedLevel &level : game.fixed)
            if (level.index < static_cast<int32_t>(fixed.size())) fixed[level.index] = true;
        std::ostringstream title;
        title << game.title << "   (rank correlation with the level index: " << std::fixed << std::setprecision(3)
              << rankCorrelationWithIndex(verdict.difficulty) << ")";
        curves.push_back({QString::fromStdString(title.str()), verdict.difficulty, fixed, game.logarithmic, game.colour});
    }
    std::cout << (ok ? "every level fact holds\n" : "some level facts do not hold\n");

    if (argc == 3) {
        // Text needs the font database, which needs an application; no window opens.
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QGuiApplication application(argc, argv);
        if (!drawDifficultyPicture(curves, QString::fromLocal8Bit(argv[2]))) {
            std::cerr << "check_levels: cannot write " << argv[2] << '\n';
            return 1;
        }
    }
    return ok ? 0 : 1;
}
