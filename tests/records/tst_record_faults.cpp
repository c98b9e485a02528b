// SPDX-License-Identifier: MIT
// The record files under injected faults. The preload library of this folder counts the calls of the
// file routines on the data folder; each of them in turn fails, or the process is killed just before
// it. After each run every file holds its old bytes or its new bytes, the games that were not being
// written keep their progress, and the next start clears what a kill left behind.
#include "best_times.h"
#include "best_times_file.h"
#include "best_times_table.h"
#include "file_bytes.h"
#include "frmFond.h"
#include "modBase.h"
#include "saved_game_file.h"
#include "saved_games.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <dlfcn.h>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace {

enum Kind { Count, Fail, Kill };
using Arm = void (*)(const char *folder, const char *routine, int at, int kind);
using Trace = const char *(*)();
using RefuseNoReplace = void (*)(int refused);

const BestRow kEmpty{0, 0, kEmptyName};
const QList<BestRow> kRows = {{9, 10, "ALPHA"}, {8, 10, "BETA"},   kEmpty, {3, 30, "ZOE"}, kEmpty,
                              kEmpty,           {7, 70, "JOUEUR"}, kEmpty, kEmpty};

QByteArray bestFile(QList<BestRow> rows)
{
    QByteArray bytes;
    for (const BestRow &row : rows) bytes += bestLine(row);
    return bytes;
}

// The best-times file as it stands before the run: cut short after eight rows. Read, it is kept
// beside and written anew; then a newcomer takes row 3 of game 1.
const QByteArray kBestOld = bestFile(kRows.mid(0, 8));
const QByteArray kBestRead = bestFile(kRows);
const QByteArray kBestNew = bestFile(kRows.mid(0, 2) + QList<BestRow>{{5, 100, "ANNE"}} + kRows.mid(3));

const QByteArray kOldA = "\"JOUEUR\"\r\n7\r\n1234\r\n999\r\n5000\r\n0\r\n0\r\n";
const QByteArray kNewA = "\"ANNE\"\r\n7\r\n1234\r\n999\r\n5000\r\n12\r\n600\r\n";
const QByteArray kOldB = "\"ZOE\"\r\n3\r\n30\r\n0\r\n0\r\n4\r\n40\r\n";
const QByteArray kNewC = "\"ANNE\"\r\n5\r\n100\r\n0\r\n0\r\n0\r\n0\r\n";

// What a write cut short may leave in the data folder, and the next start removes.
const QRegularExpression kLeftover(QStringLiteral(R"(^\.(mlbestTime\.dat|.+\.sml)\.[A-Za-z0-9]{6}$)"));

enum Result { BestWritten = 1, Created = 2, CreatedWritten = 4, RewrittenA = 8 };

// What the program does to its files in one session: start, a place in the table, a new saved game
// and its first save, the save of a game loaded from a file that holds two other games.
int playSession()
{
    InitDonnees();
    int results = 0;
    if (rankResult(gBestNiveau1, gBestTemps1, gBestNom1, 5, 100, QStringLiteral("ANNE")) && EcritBest())
        results |= BestWritten;
    gNomJoueur = QStringLiteral("ANNE");
    std::tie(gJeu, gNiveau, gTempsTotal) = std::tuple{1, 5, 100.0};
    FileList files(QStringLiteral("*.sml"));
    if (CreePartie(files, QStringLiteral("c"))) {
        results |= Created;
        gNomPartie = QStringLiteral("c");
        if (rewriteSavedGame()) results |= CreatedWritten;
    }
    gNomPartie = QStringLiteral("a");
    std::tie(gJeu, gNiveau, gTempsTotal) = std::tuple{3, 12, 600.0};
    if (rewriteSavedGame()) results |= RewrittenA;
    return results;
}

} // namespace

class TestRecordFaults : public QObject {
    Q_OBJECT

    std::unique_ptr<frmFond> fond;
    std::unique_ptr<QTemporaryDir> home;
    Arm arm = nullptr;
    Trace trace = nullptr;
    RefuseNoReplace refuseNoReplace = nullptr;

    QString data() const { return home->path() + QStringLiteral("/cerscore/marel32b/"); }

    // Runs a routine with a fault armed, and gives what it gives, or -1 when it was killed. A kill
    // is run in a child process, so that it ends the child alone.
    int withFault(const char *routine, int at, Kind kind, const std::function<int()> &run)
    {
        const QByteArray folder = QFile::encodeName(data());
        const pid_t child = kind == Kill ? fork() : 0;
        if (child == 0) {
            arm(folder.constData(), routine, at, kind);
            const int results = run();
            if (kind == Kill) _exit(results);
            arm(nullptr, nullptr, 0, Count);
            return results;
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL ? -1 : WEXITSTATUS(status);
    }

    // A new data folder holding the files before the session; in memory where the system has a
    // folder there, so that the many flushes to disk cost nothing.
    void prepare()
    {
        const QString memory = QStringLiteral("/dev/shm");
        home = std::make_unique<QTemporaryDir>((QFileInfo(memory).isWritable() ? memory : QDir::tempPath())
                                               + QStringLiteral("/tst_record_faults-XXXXXX"));
        qputenv("XDG_DATA_HOME", home->path().toUtf8());
        QVERIFY(QDir().mkpath(data()));
        writeAll(data() + QStringLiteral("mlbestTime.dat"), kBestOld);
        writeAll(data() + QStringLiteral("a.sml"), kOldA);
        writeAll(data() + QStringLiteral("b.sml"), kOldB);
    }

    // Which of its versions a file holds: "none" when it is absent, empty when it is damaged.
    QString version(const QString &name) const
    {
        const QString path = data() + name;
        if (!QFile::exists(path)) return name == QLatin1String("mlbestTime.dat") ? QString() : QStringLiteral("none");
        const QByteArray bytes = readAll(path);
        const QMap<QString, QList<std::pair<QByteArray, const char *>>> versions = {
            {"mlbestTime.dat", {{kBestOld, "old"}, {kBestRead, "read"}, {kBestNew, "new"}}},
            {"mlbestTime.dat.1", {{kBestOld, "old"}}},
            {"a.sml", {{kOldA, "old"}, {kNewA, "new"}}},
            {"b.sml", {{kOldB, "old"}}},
            {"c.sml", {{formatSavedGame(blankSavedGame()), "blank"}, {kNewC, "new"}}}};
        for (const auto &[known, label] : versions.value(name))
            if (bytes == known) return QLatin1String(label);
        // A start that could not read the old file at all writes the rows it has: a whole file still.
        if (name == QLatin1String("mlbestTime.dat") && bytes.size() == 279 && bestFile(readBestRows(bytes)) == bytes)
            return QStringLiteral("rewritten");
        return QString();
    }

    // What each file of the data folder holds, in one line; what is wrong, in `damage`. Leftovers of a
    // write are allowed where it was cut short, or where the removal of one failed.
    QString checkFolder(bool leftoversAllowed, QStringList &damage) const
    {
        const QStringList names = {"mlbestTime.dat", "mlbestTime.dat.1", "a.sml", "b.sml", "c.sml"};
        QStringList held;
        for (const QString &name : names) {
            held << name + QLatin1Char(' ') + version(name);
            if (version(name).isEmpty()) damage << name + QStringLiteral(" damaged");
        }
        // The old best-times file, cut short, is never replaced before it is kept beside.
        if (version("mlbestTime.dat") != QLatin1String("old") && version("mlbestTime.dat.1") != QLatin1String("old"))
            damage << QStringLiteral("the old best times lost");
        const QStringList others = QDir(data()).entryList(QDir::Files | QDir::Hidden | QDir::System);
        for (const QString &name : others) {
            if (names.contains(name)) continue;
            held << name;
            if (!leftoversAllowed || !kLeftover.match(name).hasMatch()) damage << name;
        }
        return held.join(QStringLiteral(", "));
    }

private slots:
    void initTestCase()
    {
        arm = reinterpret_cast<Arm>(dlsym(RTLD_DEFAULT, "faultArm"));
        trace = reinterpret_cast<Trace>(dlsym(RTLD_DEFAULT, "faultTrace"));
        refuseNoReplace = reinterpret_cast<RefuseNoReplace>(dlsym(RTLD_DEFAULT, "faultRefuseNoReplace"));
        QVERIFY2(arm && trace && refuseNoReplace, "the fault-injection library is not preloaded");
        fond = std::make_unique<frmFond>();
        gFichierBest = QStringLiteral("mlbestTime.dat");
    }

    void cleanup() { refuseNoReplace(false); }

    void everyCallFailingOrKilledLosesNothing_data()
    {
        QTest::addColumn<bool>("withoutNoReplace");
        QTest::newRow("renaming without replacing") << false;
        QTest::newRow("a second name in its place") << true;
    }

    void everyCallFailingOrKilledLosesNothing()
    {
        QFETCH(bool, withoutNoReplace);
        refuseNoReplace(withoutNoReplace);
        prepare();
        const QByteArray folder = QFile::encodeName(data());
        arm(folder.constData(), nullptr, 0, Count);
        QCOMPARE(playSession(), BestWritten | Created | CreatedWritten | RewrittenA);
        // Each call as its routine and the file it acts on.
        QStringList calls = QString::fromUtf8(trace()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        arm(nullptr, nullptr, 0, Count);
        for (QString &call : calls)
            call = call.section(QLatin1Char(' '), 1).replace(data(), QString()).replace(data().chopped(1), "folder");
        QVERIFY(calls.size() > 20);

        for (int at = 1; at <= calls.size(); ++at) {
            for (Kind kind : {Fail, Kill}) {
                prepare();
                const QString fault =
                    QStringLiteral("%1 at call %2 (%3)").arg(kind == Fail ? "fail" : "kill").arg(at).arg(calls[at - 1]);
                const int results = withFault(nullptr, at, kind, playSession);
                QCOMPARE(results < 0, kind == Kill);
                QStringList damage;
                const QString left = checkFolder(results < 0 || calls[at - 1].startsWith("unlink"), damage);
                // What the session says it wrote is on disk, and a name it turned down has no file.
                const QList<std::tuple<bool, const char *, const char *>> said = {
                    {results & RewrittenA, "a.sml", "new"},
                    {results & CreatedWritten, "c.sml", "new"},
                    {results >= 0 && !(results & Created), "c.sml", "none"}};
                for (const auto &[told, name, held] : said)
                    if (results >= 0 && told && version(name) != QLatin1String(held))
                        damage << name + QStringLiteral(" said ") + held;
                // The next start clears the leftovers and loses nothing either.
                InitDonnees();
                const QString next = checkFolder(false, damage);
                QVERIFY2(damage.isEmpty(),
                         qPrintable(fault + QStringLiteral(": ") + damage.join(QStringLiteral(", "))));
                qInfo("%s: %s; next start: %s", qPrintable(fault), qPrintable(left), qPrintable(next));
            }
        }
    }

    void aFailedFsyncFailsTheWrite()
    {
        std::tie(gNomPartie, gJeu) = std::pair{QStringLiteral("a"), 2};
        const QList<std::pair<const char *, std::function<int()>>> writes = {
            {"best times", [] { return (gBestNom2[1] = QStringLiteral("NOUVEAU"), int(EcritBest())); }},
            {"new saved game", [this] { return int(CreePartie(fond->filList, QStringLiteral("c"))); }},
            {"saved game", [] { return int(rewriteSavedGame()); }}};
        for (const auto &[what, write] : writes) {
            prepare();
            writeAll(data() + QStringLiteral("mlbestTime.dat"), kBestRead);
            InitDonnees();
            QVERIFY2(withFault("fsync", 1, Fail, write) == 0, what);
            QCOMPARE(readAll(data() + QStringLiteral("mlbestTime.dat")), kBestRead);
            QCOMPARE(readAll(data() + QStringLiteral("a.sml")), kOldA);
            QVERIFY2(!QFile::exists(data() + QStringLiteral("c.sml")), what);
        }
    }
};

QTEST_MAIN(TestRecordFaults)
#include "tst_record_faults.moc"
