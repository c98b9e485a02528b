// SPDX-License-Identifier: MIT
// Sound cues and outside documents: JoueSon and the player module behind it, OuvreAide with its
// three outcomes, and the catalogue.
#include "cue_player.h"
#include "documents.h"
#include "file_bytes.h"
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

    // Writes a file of the desktop, in a folder made for it if need be.
    void writeFile(const QString &name, const QByteArray &bytes, bool executable = false)
    {
        QDir(desktop.path()).mkpath(QFileInfo(name).path());
        QFile file(desktop.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        if (executable) file.setPermissions(file.permissions() | QFileDevice::ExeOwner);
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
        QDir(desktop.path()).mkpath(QStringLiteral("empty"));
        for (const auto &[variable, folder] : {std::pair{"XDG_CONFIG_HOME", "config"},
                                               {"XDG_DATA_HOME", "data"},
                                               {"XDG_DATA_DIRS", "empty"},
                                               {"XDG_CONFIG_DIRS", "empty"}})
            qputenv(variable, desktop.filePath(QLatin1String(folder)).toUtf8());
        writeFile(QStringLiteral("viewer.sh"), "#!/bin/sh\nprintf '%s\\n' \"$@\" >> \"" + viewerLog().toUtf8() + "\"\n",
                  true);
        // A viewer that is there but whose interpreter is gone.
        writeFile(QStringLiteral("broken-viewer"), "#!/nonexistent/interpreter\n", true);
        // The desktop's look-up of a viewer made slower, as it is on some desktops.
        writeFile(QStringLiteral("slow/xdg-mime"),
                  "#!/bin/sh\nsleep 1\nexec " + QStandardPaths::findExecutable(QStringLiteral("xdg-mime")).toUtf8()
                      + " \"$@\"\n",
                  true);
    }

    void init()
    {
        fond = std::make_unique<frmFond>();
        QVERIFY(fond->Form_Load());
        gCheminApp = QStringLiteral(BUILD_ROOT "/");
        preloadCues(fond->tambour); // the module and the waves of the build folder
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
        QVERIFY(!mapped(kCuePlayerModule) && !mapped("libQt6Multimedia"));
        fond->show();
        JoueSon(fond->tambour, QStringLiteral("marel002.wav"));
        QVERIFY(mapped("libQt6Multimedia"));
        QVERIFY(effectOf("marel002.wav") && effectOf("marel002.wav")->property("playing").toBool());
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

    // A registered viewer gets the help or the catalogue once for a double click on its picture; with
    // none nothing shows; one that cannot start gives the warning box. The clock goes on counting while
    // the desktop looks for the viewer, however long it takes.
    void documentsOpenInTheViewerOrSayWhyNot_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("viewer");
        QTest::addColumn<QString>("document");
        QTest::addColumn<bool>("opens");
        const QString html = QStringLiteral("text/html"), aide = QStringLiteral("aidemarelle/aide.htm");
        QTest::newRow("help") << html << "viewer.sh %f" << aide << true;
        QTest::newRow("help, no viewer") << html << QString() << aide << false;
        QTest::newRow("help, viewer cannot start") << html << "broken-viewer %u" << aide << false;
        QTest::newRow("catalogue") << "application/vnd.ms-htmlhelp"
                                   << "viewer.sh %f"
                                   << "catalogue.chm" << true;
    }
    void documentsOpenInTheViewerOrSayWhyNot()
    {
        QFETCH(QString, type);
        QFETCH(QString, viewer);
        QFETCH(QString, document);
        QFETCH(bool, opens);
        // The viewer registered as the desktop's default for the document's type, or none.
        const QByteArray exec = viewer.isEmpty() ? QByteArray() : desktop.filePath(viewer).toUtf8();
        writeFile(QStringLiteral("data/applications/test-viewer.desktop"),
                  "[Desktop Entry]\nType=Application\nName=Viewer\nExec=" + exec + "\n");
        writeFile(QStringLiteral("config/mimeapps.list"),
                  exec.isEmpty() ? QByteArray()
                                 : "[Default Applications]\n" + type.toUtf8() + "=test-viewer.desktop\n");
        const QString path = gCheminApp + document;
        const bool warns = viewer.startsWith(QLatin1String("broken"));
        QString shown;
        if (warns)
            whenModal([&](QWidget *dialog) {
                auto *box = qobject_cast<QMessageBox *>(dialog);
                QVERIFY(box && box->icon() == QMessageBox::Warning);
                shown = box->windowTitle() + u'|' + box->text();
                box->accept();
            });
        const QByteArray searchPath = qgetenv("PATH");
        qputenv("PATH", desktop.filePath(QStringLiteral("slow")).toUtf8() + ':' + searchPath);
        fond->show();
        QVERIFY(QTest::qWaitForWindowExposed(fond.get()));
        gJeu = 2;
        gTempsNiveau = 0;
        fond->myTimer.start(50);
        QWidget *picture =
            document.endsWith(QLatin1String(".chm")) ? static_cast<QWidget *>(fond->Picture1) : fond->imgMenu[5];
        QTest::mouseClick(picture, Qt::LeftButton);
        QTest::mouseClick(picture,
                          Qt::LeftButton); // a second click while the first is on its way starts no second viewer
        QTRY_COMPARE_WITH_TIMEOUT(viewerLookUps(), 0, 5000);
        qputenv("PATH", searchPath);
        QTRY_COMPARE_WITH_TIMEOUT(shown, warns ? QStringLiteral("Marelle|Impossible d'ouvrir :\r\n") + path : QString(),
                                  5000);
        QTRY_COMPARE_WITH_TIMEOUT(QString::fromUtf8(readAll(viewerLog())).trimmed(), opens ? path : QString(), 5000);
        QCOMPARE(openedDocuments(), opens ? QStringList({path}) : QStringList());
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(fond->tambour.played.isEmpty());
        QCOMPARE(gJeu, 2);
        QVERIFY2(gTempsNiveau >= 5, qPrintable(QStringLiteral("%1 ticks in a look-up of a second").arg(gTempsNiveau)));
    }
};

QTEST_MAIN(TestSoundDocuments)
#include "tst_sound_documents.moc"
