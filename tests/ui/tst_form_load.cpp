// SPDX-License-Identifier: MIT
// Start-up in this process: the shared record after Form_Load, and one start at a time.
#include "frmFond.h"
#include "modBase.h"
#include "program_folder.h"

#include <QApplication>
#include <QDir>
#include <QTest>

class TestFormLoad : public QObject {
    Q_OBJECT

private slots:
    void setsTheSharedRecord()
    {
        gNomJoueur = QStringLiteral("ANCIEN");
        gNomPartie = QStringLiteral("partie");
        gJeu = 3;
        frmFond fond;
        fond.mCtrl = true;
        QVERIFY(fond.Form_Load());

        QCOMPARE(gCheminApp, QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QDir::separator());
        QCOMPARE(std::tuple(gNomJoueur, gNomPartie, gJeu, fond.mCtrl), std::tuple(QString(), QString(), 0, false));
        // A borderless window of fixed size.
        QVERIFY(fond.windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(fond.minimumSize(), fond.maximumSize());
        QCOMPARE(std::tuple(gNiveaux1.size(), gNiveaux2.size(), gNiveaux3.size()), std::tuple(4000, 7200, 9720));
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
