// SPDX-License-Identifier: MIT
// Sound cues and outside documents: JoueSon and the player module behind it, OuvreAide with its
// three outcomes, and the catalogue.
#include "cue_player.h"
#include "documents.h"
#include "frmFond.h"
#include "modBase.h"
#include "modal_answer.h"
#include "sound.h"

#include <QDir>
#include <QMessageBox>
#include <QPluginLoader>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class TestSoundDocuments : public QObject {
    Q_OBJECT

    QTemporaryDir desktop; // a desktop of our own: its applications and its default viewers
    std::unique_ptr<frmFond> fond;

    QString viewerLog() const { return desktop.filePath(QStringLiteral("viewer.log")); }

    // Registers a viewer for a type of document; an empty exec registers none.
    void registerViewer(const QString &mimeType, const QString &exec)
    {
        QDir(desktop.path()).mkpath(QStringLiteral("data/applications"));
        QFile entry(desktop.filePath(QStringLiteral("data/applications/test-viewer.desktop")));
        QVERIFY(entry.open(QIODevice::WriteOnly));
        entry.write("[Desktop Entry]\nType=Application\nName=Viewer\nExec=" + exec.toUtf8() + "\n");
        entry.close();
        QFile defaults(desktop.filePath(QStringLiteral("config/mimeapps.list")));
        QVERIFY(defaults.open(QIODevice::WriteOnly));
        if (!exec.isEmpty()) defaults.write("[Default Applications]\n" + mimeType.toUtf8() + "=test-viewer.desktop\n");
    }

    void writeScript(const QString &name, const QByteArray &body, const QByteArray &interpreter = "/bin/sh")
    {
        QFile script(desktop.filePath(name));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!" + interpreter + "\n" + body + "\n");
        script.close();
        script.setPermissions(script.permissions() | QFileDevice::ExeOwner);
    }

    // Whether a library whose file name holds this text is mapped into the process.
    static bool mapped(const char *library)
    {
        QFile maps(QStringLiteral("/proc/self/maps"));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
    }

    // The sound effect of the loaded player module that holds a wave of the program's folder.
    static QObject *effectOf(const char *wave)
    {
        QObject *player = QPluginLoader(gCheminApp + QLatin1String(kCuePlayerModule)).instance();
        const QUrl source = QUrl::fromLocalFile(gCheminApp + QLatin1String(wave));
        for (QObject *effect : player->children())
            if (effect->property("source").toUrl() == source) return effect;
        return nullptr;
    }

private slots:
    void initTestCase()
    {
        QDir(desktop.path()).mkpath(QStringLiteral("config"));
        QDir(desktop.path()).mkpath(QStringLiteral("empty"));
        qputenv("XDG_CONFIG_HOME", desktop.filePath(QStringLiteral("config")).toUtf8());
        qputenv("XDG_DATA_HOME", desktop.filePath(QStringLiteral("data")).toUtf8());
        qputenv("XDG_DATA_DIRS", desktop.filePath(QStringLiteral("empty")).toUtf8());
        qputenv("XDG_CONFIG_DIRS", desktop.filePath(QStringLiteral("empty")).toUtf8());
        writeScript(QStringLiteral("viewer.sh"), "printf '%s\\n' \"$@\" >> \"" + viewerLog().toUtf8() + "\"");
        // A viewer that is there but whose interpreter is gone.
        writeScript(QStringLiteral("broken-viewer"), "", "/nonexistent/interpreter");
        // The desktop's look-up of a viewer made slower, as it is on some desktops.
        QDir(desktop.path()).mkpath(QStringLiteral("slow"));
        writeScript(QStringLiteral("slow/xdg-mime"),
                    "sleep 1\nexec " + QStandardPaths::findExecutable(QStringLiteral("xdg-mime")).toUtf8() + " \"$@\"");
    }

    void init()
    {
        fond = std::make_unique<frmFond>();
        QVERIFY(fond->Form_Load());
        gCheminApp = QStringLiteral(BUILD_ROOT "/");
        preloadCues(fond->tambour, fond.get()); // the module and the waves of the build folder
        fond->tambour.played.clear();
        openedDocuments().clear();
        QFile::remove(viewerLog());
    }
    void cleanup()
    {
        QTRY_COMPARE_WITH_TIMEOUT(viewerLookUps(), 0, 5000);
        fond.reset();
    }

    // First of all: once loaded, the player module stays for the life of the process.
    void aCueAskedBeforeThePlayerIsLoadedPlaysFromItsStartAndAllDecode()
    {
        QVERIFY(!mapped(kCuePlayerModule));
        QVERIFY(!mapped("libQt6Multimedia"));
        fond->show();
        JoueSon(fond->tambour, QStringLiteral("marel002.wav"));
        QVERIFY(mapped("libQt6Multimedia"));
        QObject *wave = effectOf("marel002.wav");
        QVERIFY(wave);
        QVERIFY(wave->property("playing").toBool());
        QTRY_COMPARE_WITH_TIMEOUT(wave->property("status").toString(), QStringLiteral("Ready"), 5000);
        QCOMPARE(fond->tambour.played, QStringList({"marel002.wav"}));
        // The six cues come with the player and decode; a missing wave stops nothing.
        JoueSon(fond->tambour, QStringLiteral("absent.wav"));
        for (const char *cue :
             {"marel001.wav", "marel002.wav", "marel007.wav", "marel008.wav", "marel009.wav", "marel010.wav"}) {
            QObject *wave = effectOf(cue);
            QVERIFY2(wave, cue);
            QTRY_COMPARE_WITH_TIMEOUT(wave->property("status").toString(), QStringLiteral("Ready"), 5000);
        }
    }

    // A registered viewer gets the help once for a double click; with none nothing shows; one that
    // cannot start gives the warning box.
    void helpOpensInTheViewerOrSaysWhyNot_data()
    {
        QTest::addColumn<QString>("viewer");
        QTest::addColumn<bool>("opens");
        QTest::newRow("registered") << "viewer.sh %f" << true;
        QTest::newRow("none") << QString() << false;
        QTest::newRow("cannot start") << "broken-viewer %u" << false;
    }
    void helpOpensInTheViewerOrSaysWhyNot()
    {
        QFETCH(QString, viewer);
        QFETCH(bool, opens);
        registerViewer(QStringLiteral("text/html"), viewer.isEmpty() ? viewer : desktop.filePath(viewer));
        const QString aide = gCheminApp + QStringLiteral("aidemarelle/aide.htm");
        const bool warns = viewer.startsWith(QLatin1String("broken"));
        QString shown;
        if (warns)
            whenModal([&](QWidget *dialog) {
                auto *box = qobject_cast<QMessageBox *>(dialog);
                QVERIFY(box && box->icon() == QMessageBox::Warning);
                shown = box->windowTitle() + u'|' + box->text();
                box->accept();
            });
        gJeu = 2;
        OuvreAide(fond.get());
        OuvreAide(fond.get()); // a second click while the first is on its way starts no second viewer
        QTRY_COMPARE_WITH_TIMEOUT(viewerLookUps(), 0, 5000);
        QTRY_COMPARE_WITH_TIMEOUT(shown, warns ? QStringLiteral("Marelle|Impossible d'ouvrir :\r\n") + aide : QString(),
                                  5000);
        const auto logged = [this] {
            QFile log(viewerLog());
            return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()).trimmed() : QString();
        };
        QTRY_COMPARE_WITH_TIMEOUT(logged(), opens ? aide : QString(), 5000);
        QCOMPARE(openedDocuments(), opens ? QStringList({aide}) : QStringList());
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(gJeu, 2);
    }

    void thePictureOpensTheCatalogue()
    {
        registerViewer(QStringLiteral("application/vnd.ms-htmlhelp"),
                       desktop.filePath(QStringLiteral("viewer.sh")) + " %f");
        fond->show();
        QVERIFY(QTest::qWaitForWindowExposed(fond.get()));
        QTest::mouseClick(fond->Picture1, Qt::LeftButton);
        QTest::mouseClick(fond->Picture1, Qt::LeftButton); // a double click starts one viewer
        QTRY_COMPARE_WITH_TIMEOUT(openedDocuments(), QStringList({gCheminApp + QStringLiteral("catalogue.chm")}), 5000);
        QVERIFY(fond->tambour.played.isEmpty());
    }

    // The clock goes on counting while the desktop looks for the viewer, however long it takes.
    void theClockRunsWhileHelpIsOpening()
    {
        registerViewer(QStringLiteral("text/html"), desktop.filePath(QStringLiteral("viewer.sh")) + " %f");
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", desktop.filePath(QStringLiteral("slow")).toUtf8() + ':' + path);
        fond->show();
        QVERIFY(QTest::qWaitForWindowExposed(fond.get()));
        gJeu = 2;
        gTempsNiveau = 0;
        fond->myTimer.start(50);
        QTest::mouseClick(fond->imgMenu[5], Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(openedDocuments().size(), 1, 5000);
        qputenv("PATH", path);
        QVERIFY2(gTempsNiveau >= 5, qPrintable(QStringLiteral("%1 ticks in a look-up of a second").arg(gTempsNiveau)));
    }
};

QTEST_MAIN(TestSoundDocuments)
#include "tst_sound_documents.moc"
