// SPDX-License-Identifier: MIT
// Start-up in this process: the shared record after Form_Load, and the program folder it keeps.
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
        QCOMPARE(std::tuple(gNomJoueur, gNomPartie, gJeu, fond.mCtrl), std::tuple(QString(), QString(), 0, false));
        // A borderless window of fixed size.
        QVERIFY(fond.windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(fond.minimumSize(), fond.maximumSize());
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
