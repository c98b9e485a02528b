// SPDX-License-Identifier: MIT
// The real program as the desktop starts it: a second start ends at once, silently, touching
// nothing, and leaves the first running; nothing is printed; an X server is preferred to Wayland.
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class TestSingleInstance : public QObject {
    Q_OBJECT

    QTemporaryDir mRuntime;

    // The program with the environment given on top of this one's, on no sound device.
    std::unique_ptr<QProcess> start(const QStringList &set = {QStringLiteral("QT_QPA_PLATFORM=offscreen")},
                                    const QStringList &unset = {})
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), mRuntime.path());
        env.insert(QStringLiteral("PULSE_SERVER"), mRuntime.filePath(QStringLiteral("no-sound")));
        for (const QString &name : unset) env.remove(name);
        for (const QString &pair : set)
            env.insert(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
        process->setProcessEnvironment(env);
        process->start(QStringLiteral(MARELLE_EXE), {});
        return process;
    }

    QString lockPath() const { return mRuntime.path() + QStringLiteral("/marelle.lock"); }

    static void stop(QProcess &process)
    {
        process.kill();
        process.waitForFinished(5000);
    }

    // Whether a window of that title shows on this X server within the time given.
    static bool shownOnX(int seconds)
    {
        QProcess search;
        search.start(
            QStringLiteral("timeout"),
            QStringLiteral("%1 xdotool search --sync --onlyvisible --name ^Marelle$").arg(seconds).split(u' '));
        return search.waitForFinished(seconds * 1000 + 5000) && search.exitCode() == 0;
    }

private slots:
    void initTestCase()
    {
        QFile::setPermissions(mRuntime.path(),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }

    void secondStartExitsSilentlyAndTheFirstRunsOn()
    {
        auto first = start();
        QVERIFY(first->waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(lockPath()), 10000);

        // The second start touches no window system: one it could not use does not stop it.
        for (const char *platform : {"offscreen", "no-such-platform"}) {
            auto second = start({QStringLiteral("QT_QPA_PLATFORM=") + QLatin1String(platform)});
            QVERIFY(second->waitForFinished(10000));
            QCOMPARE(std::tuple(second->exitStatus(), second->exitCode(),
                                second->readAllStandardOutput() + second->readAllStandardError()),
                     std::tuple(QProcess::NormalExit, 0, QByteArray()));
        }

        // The first has set itself up, sound included, and printed nothing.
        QVERIFY(!first->waitForFinished(1500) && first->state() == QProcess::Running);
        stop(*first);
        QCOMPARE(first->readAllStandardOutput() + first->readAllStandardError(), QByteArray());

        // A first instance that dies leaves a stale lock that does not bar the next start.
        QVERIFY(QFileInfo::exists(lockPath()));
        auto third = start();
        QVERIFY(third->waitForStarted());
        QVERIFY(!third->waitForFinished(1500) && third->state() == QProcess::Running);
        stop(*third);
    }

    // With an X server and a Wayland compositor side by side, as in a Wayland session with XWayland,
    // the window goes to the X server unless the player chose a platform; with Wayland alone, it
    // runs there. Either way it prints nothing.
    void anXServerIsPreferredToWayland_data()
    {
        QTest::addColumn<QStringList>("set");
        QTest::addColumn<QStringList>("unset");
        QTest::addColumn<bool>("onX");
        const QString session = QStringLiteral("XDG_SESSION_TYPE=wayland");
        QTest::newRow("both") << QStringList{session} << QStringList{QStringLiteral("QT_QPA_PLATFORM")} << true;
        QTest::newRow("both, Wayland chosen")
            << QStringList{session, QStringLiteral("QT_QPA_PLATFORM=wayland")} << QStringList{} << false;
        QTest::newRow("Wayland alone") << QStringList{session}
                                       << QStringList{QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("DISPLAY")}
                                       << false;
    }

    void anXServerIsPreferredToWayland()
    {
        QFETCH(QStringList, set);
        QFETCH(QStringList, unset);
        QFETCH(bool, onX);
        if (qEnvironmentVariableIsEmpty("DISPLAY")) QSKIP("no X server here");
        if (QStandardPaths::findExecutable(QStringLiteral("weston")).isEmpty()) QSKIP("weston not found");
        // A socket of its own per row: a killed compositor leaves its socket file behind, and a
        // program started against that stale file finds no compositor and exits.
        static int row = 0;
        const QString socket = QStringLiteral("wayland-marelle-%1").arg(++row);
        QProcess weston;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), mRuntime.path());
        weston.setProcessEnvironment(env);
        weston.start(QStringLiteral("weston"), {QStringLiteral("--backend=headless-backend.so"),
                                                QStringLiteral("--socket=") + socket, QStringLiteral("--idle-time=0")});
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(mRuntime.filePath(socket)), 10000);

        auto program = start(set << QStringLiteral("WAYLAND_DISPLAY=") + socket, unset);
        QVERIFY(program->waitForStarted());
        QCOMPARE(shownOnX(onX ? 10 : 2), onX);
        QVERIFY(!program->waitForFinished(100));
        stop(*program);
        QCOMPARE(program->readAllStandardError(), QByteArray());
        stop(weston);
    }
};

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_single_instance.moc"
