// SPDX-License-Identifier: MIT
// What the level checkers of the three games share: the rank correlation of a difficulty curve,
// the rule on the last quarter of a store, and when two records are the same puzzle.
#include "difficulty_curve.h"
#include "level_symmetry.h"

#include <QTest>

#include <array>
#include <limits>
#include <numeric>
#include <sstream>

class TestLevelTools : public QObject {
    Q_OBJECT

private slots:
    // Rising, falling, ties sharing their rank, a level never won ranking highest, all alike.
    void rankCorrelation()
    {
        const double never = std::numeric_limits<double>::infinity();
        const std::pair<std::vector<double>, double> cases[] = {{{1, 5, 6, 20}, 1.0},
                                                                {{4, 3, 2, 1}, -1.0},
                                                                {{1, 1, 2, 2}, 4 / std::sqrt(20.0)},
                                                                {{never, 1, 2, 3}, -0.2},
                                                                {{3, 3, 3}, 0.0}};
        for (const auto &[values, correlation] : cases)
            QVERIFY(std::abs(rankCorrelationWithIndex(values) - correlation) < 1e-12);
    }

    // A hundred rising levels with the last one easiest: the correlation stays above the bar, but
    // that level is easier than the first quarter unless its record is fixed.
    void lastQuarterLevelEasierThanTheFirstQuarter()
    {
        std::vector<double> difficulty(100);
        std::iota(difficulty.begin(), difficulty.end(), 1.0);
        difficulty[99] = 0.5;
        for (bool fixed : {false, true}) {
            const std::array<FixedLevel, 1> fixedLevels{{{fixed ? 99 : 0, ""}}};
            std::ostringstream out;
            Failures failures;
            judgeDifficulty(difficulty, fixedLevels, "units", out, failures);
            failures.print(out);
            QCOMPARE(failures.none(), fixed);
            QCOMPARE(out.str().find("level 99 of the last quarter is easier than the median of the first quarter, 13.0")
                         != std::string::npos,
                     !fixed);
            QVERIFY(out.str().find("rank correlation with the level index 0.94") != std::string::npos);
        }
    }

    // Records on a board of 4 columns and 3 rows beside "120030000000": moved, mirrored, turned half,
    // turned a quarter on a rectangle and on a square, other values, other values relabelled, another shape.
    void sameLevelUnderItsSymmetries()
    {
        const std::string first = "120030000000";
        const auto rectangle = Symmetries::Rectangle, square = Symmetries::Square;
        const std::tuple<std::string, Symmetries, bool, bool> cases[] = {
            {"000000120030", rectangle, false, true}, {"002100030000", rectangle, false, true},
            {"000000030021", rectangle, false, true}, {"310002000000", rectangle, false, false},
            {"310002000000", square, false, true},    {"140030000000", square, false, false},
            {"140030000000", square, true, true},     {"123000000000", square, true, false}};
        const Relabel allOnes = [](std::string cells) {
            for (char &c : cells) c = c == '0' ? '0' : '1';
            return cells;
        };
        for (const auto &[second, symmetries, relabelled, same] : cases) {
            const LevelLayout layout{4, 3, symmetries, relabelled ? allOnes : nullptr};
            QVERIFY2((canonicalForm(first, layout) == canonicalForm(second, layout)) == same
                         && repeatedLevels(first + second, layout).size() == size_t(same ? 1 : 0),
                     second.c_str());
        }
    }
};

QTEST_APPLESS_MAIN(TestLevelTools)
#include "tst_level_tools.moc"
