// Two real processes: the second start ends at once, silently, and leaves the first running.
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class TestSingleInstance : public QObject {
    Q_OBJECT

    QTemporaryDir mRuntime;

    std::unique_ptr<QProcess> start()
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), mRuntime.path());
        process->setProcessEnvironment(env);
        process->start(QStringLiteral(MARELLE_EXE), {});
        return process;
    }

    QString lockPath() const { return mRuntime.path() + QStringLiteral("/marelle.lock"); }

private slots:
    void initTestCase()
    {
        QVERIFY(mRuntime.isValid());
        QFile::setPermissions(mRuntime.path(),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }

    void secondStartExitsSilentlyAndTheFirstRunsOn()
    {
        auto first = start();
        QVERIFY(first->waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(lockPath()), 10000);

        auto second = start();
        QVERIFY(second->waitForFinished(10000));
        QCOMPARE(second->exitStatus(), QProcess::NormalExit);
        QCOMPARE(second->exitCode(), 0);
        QVERIFY(second->readAllStandardOutput().isEmpty());
        QVERIFY(second->readAllStandardError().isEmpty());

        QCOMPARE(first->state(), QProcess::Running);
        QVERIFY(!first->waitForFinished(500));

        // A first instance that dies leaves a stale lock that does not bar the next start.
        first->kill();
        QVERIFY(first->waitForFinished(5000));
        QVERIFY(QFileInfo::exists(lockPath()));
        auto third = start();
        QVERIFY(third->waitForStarted());
        QVERIFY(!third->waitForFinished(1500));
        QCOMPARE(third->state(), QProcess::Running);
        third->kill();
        third->waitForFinished(5000);
    }
};

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_single_instance.moc"
