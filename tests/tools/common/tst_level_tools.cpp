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

Q_DECLARE_METATYPE(std::vector<double>)

class TestLevelTools : public QObject {
    Q_OBJECT

private slots:
    void rankCorrelation_data()
    {
        QTest::addColumn<std::vector<double>>("values");
        QTest::addColumn<double>("correlation");
        const double never = std::numeric_limits<double>::infinity();
        QTest::newRow("rising") << std::vector<double>{1, 5, 6, 20} << 1.0;
        QTest::newRow("falling") << std::vector<double>{4, 3, 2, 1} << -1.0;
        QTest::newRow("ties share their rank") << std::vector<double>{1, 1, 2, 2} << 4 / std::sqrt(20.0);
        QTest::newRow("a level never won ranks highest") << std::vector<double>{never, 1, 2, 3} << -0.2;
        QTest::newRow("all alike") << std::vector<double>{3, 3, 3} << 0.0;
    }
    void rankCorrelation()
    {
        QFETCH(std::vector<double>, values);
        QFETCH(double, correlation);
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

    void sameLevelUnderItsSymmetries_data()
    {
        // Records on a board of 4 columns and 3 rows.
        QTest::addColumn<QString>("second"); // the other record, beside "120030000000"
        QTest::addColumn<int>("symmetries");
        QTest::addColumn<bool>("relabelled");
        QTest::addColumn<bool>("same");
        const int rectangle = int(Symmetries::Rectangle), square = int(Symmetries::Square);
        QTest::newRow("moved") << "000000120030" << rectangle << false << true;
        QTest::newRow("mirrored") << "002100030000" << rectangle << false << true;
        QTest::newRow("turned half") << "000000030021" << rectangle << false << true;
        QTest::newRow("turned a quarter, rectangle") << "310002000000" << rectangle << false << false;
        QTest::newRow("turned a quarter, square") << "310002000000" << square << false << true;
        QTest::newRow("other values") << "140030000000" << square << false << false;
        QTest::newRow("other values relabelled") << "140030000000" << square << true << true;
        QTest::newRow("other shape") << "123000000000" << square << true << false;
    }
    void sameLevelUnderItsSymmetries()
    {
        const QString first = QStringLiteral("120030000000");
        QFETCH(QString, second);
        QFETCH(int, symmetries);
        QFETCH(bool, relabelled);
        QFETCH(bool, same);
        const Relabel allOnes = [](std::string cells) {
            for (char &c : cells) c = c == '0' ? '0' : '1';
            return cells;
        };
        const LevelLayout layout{4, 3, Symmetries(symmetries), relabelled ? allOnes : nullptr};
        const std::string store = first.toStdString() + second.toStdString();
        QCOMPARE(canonicalForm(first.toStdString(), layout) == canonicalForm(second.toStdString(), layout), same);
        QCOMPARE(repeatedLevels(store, layout).size(), size_t(same ? 1 : 0));
    }
};

QTEST_APPLESS_MAIN(TestLevelTools)
#include "tst_level_tools.moc"
