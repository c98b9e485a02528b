// SPDX-License-Identifier: MIT
// The level stores: what ChargeNiveaux loads, and how many levels a store holds.
#include "file_bytes.h"
#include "level_store.h"
#include "modBase.h"

class TestLevelStore : public QObject {
    Q_OBJECT

private slots:
    void init() { ChargeNiveaux(); }

    void storesHoldTheShippedBytesAndTheirLevels()
    {
        const QList<std::tuple<const QByteArray &, const char *, int>> stores = {
            {gNiveaux1, "niveaux1.dat", 100}, {gNiveaux2, "niveaux2.dat", 100}, {gNiveaux3, "niveaux3.dat", 120}};
        for (int game = 1; game <= 3; ++game) {
            const auto &[store, file, levels] = stores[game - 1];
            QCOMPARE(store, readAll(QStringLiteral(LEVELS_DIR "/") + QLatin1String(file)));
            QCOMPARE(levelCount(game), levels);
        }
    }

    void resourceLookUpIgnoresTheCaseOfTheType()
    {
        QCOMPARE(loadResource(100, QStringLiteral("MESDATAS")), gNiveaux1);
        QCOMPARE(loadResource(102, QStringLiteral("MesDatas")), gNiveaux3);
        QVERIFY(loadResource(103, QStringLiteral("mesdatas")).isEmpty()
                && loadResource(100, QStringLiteral("other")).isEmpty());
    }

    void aStoreOfAnotherSizeChangesTheLevelCount()
    {
        gNiveaux1 = gNiveaux1.left(2 * 40);
        gNiveaux2 = gNiveaux2 + gNiveaux2.left(72);
        gNiveaux3 = gNiveaux3.left(7 * 81);
        QCOMPARE(std::tuple(levelCount(1), levelCount(2), levelCount(3)), std::tuple(2, 101, 7));
        // Game 2 records are 72 bytes, not 81: its nine rows have eight columns.
        gNiveaux2 = QByteArray(81 * 8, '0');
        QCOMPARE(levelCount(2), 9);
    }
};

QTEST_APPLESS_MAIN(TestLevelStore)
#include "tst_level_store.moc"
