// SPDX-License-Identifier: MIT
// Start-up in this process: the shared record after Form_Load, and the program folder it keeps.
#include "frmFond.h"
#include "modBase.h"
#include "program_folder.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>

namespace {

qsizetype threadCount()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

} // namespace

class TestFormLoad : public QObject {
    Q_OBJECT

private slots:
    // The idle window shows pictures and no text: its first paint reads no font, and copies the
    // pixels around the catalogue rather than blending them on threads started for the purpose.
    void theIdleWindowPaintsBeforeAnyFontIsReadOrThreadStarted()
    {
        frmFond fond;
        QVERIFY(fond.Form_Load());
        const qsizetype threads = threadCount();
        fond.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fond));
        QCOMPARE(threadCount(), threads);
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
