// SPDX-License-Identifier: MIT
// The window's file list over a real folder, and over one that is gone.
#include "file_list.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestFileList : public QObject {
    Q_OBJECT

private slots:
    void listsMatchingPlainFilesSortedIgnoringCase()
    {
        QTemporaryDir folder;
        for (const char *name : {"zoe.sml", "Bruno.sml", "alice.sml", "ALAIN.SML", "notes.txt", "sml", "x.sml.bak"}) {
            QFile file(folder.filePath(QLatin1String(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QDir(folder.path()).mkdir(QStringLiteral("dossier.sml"));
        QDir(folder.path()).mkpath(QStringLiteral("sous/cache.sml"));

        FileList list(QStringLiteral("*.sml"));
        list.Path = folder.path();
        list.Refresh();
        QStringList names;
        for (int i = 0; i < list.ListCount(); ++i) names << list.List(i);
        QCOMPARE(names, QStringList({"ALAIN.SML", "alice.sml", "Bruno.sml", "zoe.sml"}));
        QVERIFY(list.List(4).isEmpty() && list.List(-1).isEmpty());

        QFile::remove(folder.filePath(QStringLiteral("zoe.sml")));
        list.Refresh();
        QCOMPARE(list.ListCount(), 3);
        list.Path = folder.filePath(QStringLiteral("absent"));
        list.Refresh();
        QCOMPARE(list.ListCount(), 0);
    }
};

QTEST_APPLESS_MAIN(TestFileList)
#include "tst_file_list.moc"
