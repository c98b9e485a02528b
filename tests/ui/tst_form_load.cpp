// SPDX-License-Identifier: MIT
// Start-up in this process: the shared record after Form_Load, and one start at a time.
#include "frmFond.h"
#include "modBase.h"
#include "program_folder.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>

class TestFormLoad : public QObject {
    Q_OBJECT

private slots:
    // The idle window shows no text, so nothing before its first paint reads a font.
    void theIdleWindowPaintsBeforeAnyFontIsRead()
    {
        frmFond fond;
        QVERIFY(fond.Form_Load());
        fond.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fond));
        QFile maps(QStringLiteral("/proc/self/maps"));
        QVERIFY(maps.open(QIODevice::ReadOnly));
        QVERIFY(!maps.readAll().contains("/fonts/"));
    }

    void setsTheSharedRecord()
    {
        gNomJoueur = QStringLiteral("ANCIEN");
        gNomPartie = QStringLiteral("partie");
        gJeu = 3;
        frmFond fond;
        fond.mCtrl = true;
        QVERIFY(fond.Form_Load());

        QCOMPARE(gCheminApp, QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QDir::separator());
        QVERIFY(gNomJoueur.isEmpty());
        QVERIFY(gNomPartie.isEmpty());
        QCOMPARE(gJeu, 0);
        QVERIFY(!fond.mCtrl);
        // A borderless window of fixed size.
        QVERIFY(fond.windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(fond.minimumSize(), fond.maximumSize());
        QCOMPARE(gNiveaux1.size(), 4000);
        QCOMPARE(gNiveaux2.size(), 7200);
        QCOMPARE(gNiveaux3.size(), 9720);
    }

    void aSecondStartInTheSameSessionIsRefusedUntilTheFirstEnds()
    {
        auto first = std::make_unique<frmFond>();
        QVERIFY(first->Form_Load());
        frmFond second;
        QVERIFY(!second.Form_Load());
        first.reset();
        frmFond third;
        QVERIFY(third.Form_Load());
    }

    void theProgramFolderEndsInExactlyOneSeparator()
    {
        QCOMPARE(withTrailingSeparator(QStringLiteral("/")), QStringLiteral("/"));
        QCOMPARE(withTrailingSeparator(QStringLiteral("/usr/lib/marelle")), QStringLiteral("/usr/lib/marelle/"));
        QCOMPARE(withTrailingSeparator(QStringLiteral("/usr/lib/marelle/")), QStringLiteral("/usr/lib/marelle/"));
    }
};

QTEST_MAIN(TestFormLoad)
#include "tst_form_load.moc"
