// The level stores: what ChargeNiveaux loads, and how many levels a store holds.
#include "level_store.h"
#include "modBase.h"

#include <QFile>
#include <QTest>

class TestLevelStore : public QObject {
    Q_OBJECT

private slots:
    void init() { ChargeNiveaux(); }

    void storesHoldTheShippedBytes_data()
    {
        QTest::addColumn<int>("game");
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("size");
        QTest::newRow("game 1") << 1 << "niveaux1.dat" << 4000;
        QTest::newRow("game 2") << 2 << "niveaux2.dat" << 7200;
        QTest::newRow("game 3") << 3 << "niveaux3.dat" << 9720;
    }
    void storesHoldTheShippedBytes()
    {
        QFETCH(int, game);
        QFETCH(QString, file);
        QFETCH(int, size);
        QFile shipped(QStringLiteral(LEVELS_DIR "/") + file);
        QVERIFY(shipped.open(QIODevice::ReadOnly));
        const QByteArray bytes = shipped.readAll();
        const QByteArray &store = game == 1 ? gNiveaux1 : game == 2 ? gNiveaux2 : gNiveaux3;
        QCOMPARE(store.size(), size);
        QCOMPARE(store, bytes);
    }

    void resourceLookUpIgnoresTheCaseOfTheType()
    {
        QCOMPARE(loadResource(100, QStringLiteral("MESDATAS")), gNiveaux1);
        QCOMPARE(loadResource(102, QStringLiteral("MesDatas")), gNiveaux3);
        QVERIFY(loadResource(103, QStringLiteral("mesdatas")).isEmpty());
        QVERIFY(loadResource(100, QStringLiteral("other")).isEmpty());
    }

    void levelCountComesFromTheStoreSize()
    {
        QCOMPARE(levelCount(1), 100);
        QCOMPARE(levelCount(2), 100);
        QCOMPARE(levelCount(3), 120);
        // The last record ends exactly at the last byte of each store.
        for (int game = 1; game <= 3; ++game) {
            const QByteArray &store = game == 1 ? gNiveaux1 : game == 2 ? gNiveaux2 : gNiveaux3;
            QCOMPARE(levelCount(game) * bytesPerLevel(game), store.size());
        }
    }

    void aStoreOfAnotherSizeChangesTheLevelCount()
    {
        gNiveaux1 = gNiveaux1.left(2 * 40);
        gNiveaux2 = gNiveaux2 + gNiveaux2.left(72);
        gNiveaux3 = gNiveaux3.left(7 * 81);
        QCOMPARE(levelCount(1), 2);
        QCOMPARE(levelCount(2), 101);
        QCOMPARE(levelCount(3), 7);
        // Game 2 records are 72 bytes, not 81: its nine rows have eight columns.
        gNiveaux2 = QByteArray(81 * 8, '0');
        QCOMPARE(levelCount(2), 9);
    }
};

QTEST_APPLESS_MAIN(TestLevelStore)
#include "tst_level_store.moc"
