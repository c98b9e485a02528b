// SPDX-License-Identifier: MIT
// Start-up in this process: the shared record after Form_Load, and the program folder it keeps.
#include "frmFond.h"
#include "modBase.h"
#include "program_folder.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <linux/perf_event.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// Page faults this thread takes by trap (the first write to a page not yet mapped), as perf counts
// them; pages mapped in one go are not among them.
class TrappedFaults {
public:
    TrappedFaults()
    {
        perf_event_attr attr{};
        attr.type = PERF_TYPE_SOFTWARE;
        attr.size = sizeof attr;
        attr.config = PERF_COUNT_SW_PAGE_FAULTS_MIN;
        attr.exclude_kernel = 1;
        mFd = static_cast<int>(syscall(SYS_perf_event_open, &attr, 0, -1, -1, 0));
    }
    ~TrappedFaults()
    {
        if (mFd >= 0) close(mFd);
    }
    bool available() const { return mFd >= 0; }
    quint64 count() const
    {
        quint64 value = 0;
        return read(mFd, &value, sizeof value) == sizeof value ? value : 0;
    }

private:
    int mFd;
};

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
    // Its pictures and the image its paint is drawn into are mapped in one go, not by a trap at the
    // first write to each page: fewer traps than the window's image has pages.
    void theIdleWindowPaintsBeforeAnyFontIsReadOrThreadStarted()
    {
        const TrappedFaults faults;
        frmFond fond;
        QVERIFY(fond.Form_Load());
        const quint64 loading = faults.count();
        const qsizetype threads = threadCount();
        fond.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fond));
        const quint64 painting = faults.count() - loading;
        QCOMPARE(threadCount(), threads);
        QFile maps(QStringLiteral("/proc/self/maps"));
        QVERIFY(maps.open(QIODevice::ReadOnly));
        QVERIFY(!maps.readAll().contains("/fonts/"));

        if (!faults.available()) QSKIP("no page fault counter (perf_event_open) here");
        const quint64 windowPages = 600 * 600 * 4 / 4096;
        QCOMPARE_LT(loading, windowPages);
        QCOMPARE_LT(painting, windowPages / 4);
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
