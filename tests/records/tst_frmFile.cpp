// SPDX-License-Identifier: MIT
// The saved-game chooser over a real folder of saved games, driven by clicks on its labels and arrows.
#include "frmFile.h"
#include "modal_answer.h"
#include "started_window.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString kClick = QStringLiteral("marel009.wav");

// "JOUEUR00" to "JOUEUR<count - 1>", in the list's order.
QStringList numbered(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i) names << QStringLiteral("JOUEUR%1").arg(i, 2, 10, QLatin1Char('0'));
    return names;
}

QStringList captions(const frmFile *f)
{
    QStringList shown;
    for (ClickLabel *label : f->labF) shown << label->text();
    return shown;
}

// The captions a view starting at `first` must show: up to five names, empty below the last.
QStringList view(const QStringList &names, int first)
{
    QStringList shown;
    for (int i = first; i < first + 5; ++i) shown << names.value(i);
    return shown;
}

// The labels that show the grey of the mark, looked at where their text never reaches.
QList<int> marked(frmFile *f)
{
    QList<int> found;
    for (int i = 0; i < 5; ++i) {
        const QPoint corner = f->labF[i]->geometry().topLeft() + QPoint(2, 2);
        if (f->grab(QRect(corner, QSize(1, 1))).toImage().pixelColor(0, 0) == QColor(128, 128, 128)) found << i;
    }
    return found;
}

void click(QWidget *w) { QTest::mouseClick(w, Qt::LeftButton); }

} // namespace

class TestFrmFile : public QObject {
    Q_OBJECT

    std::unique_ptr<frmFond> fond;
    std::unique_ptr<QTemporaryDir> folder;

    // The chooser over saved games of these names, loaded as play control loads it, with no cue heard yet.
    frmFile *chooser(const QStringList &names)
    {
        for (const QString &name : names) {
            QFile file(folder->filePath(name + QStringLiteral(".sml")));
            if (!file.open(QIODevice::WriteOnly)) return nullptr;
        }
        fond->filList.Path = folder->path();
        fond->filList.Refresh();
        auto *f = new frmFile(fond->dialogOwner(), fond->filList);
        f->Form_Load();
        fond->tambour.played.clear();
        return f;
    }

    // Shows the chooser modally, lets the player act, and gives its answer; fails when it stayed up.
    QString run(frmFile *f, std::function<void(frmFile *)> player)
    {
        const bool ended = execWith<frmFile>(f, player);
        const QString answer = f->Tag;
        delete f;
        if (!ended) QTest::qFail("the chooser stayed up", __FILE__, __LINE__);
        return answer;
    }

private slots:
    void init()
    {
        fond = startedWindow();
        QVERIFY(fond);
        folder = std::make_unique<QTemporaryDir>();
    }
    void cleanup()
    {
        fond.reset();
        folder.reset();
    }

    // The player's acts, by word: "L<n>" clicks label n; "v<n>" and "^<n>" click the down and up arrows
    // and expect the view to start at name n; "m<n>" expects the mark on label n alone, "m" no mark;
    // "charger" and "annuler" click the buttons, "esc" and "ret" press the keys, "close" asks the window
    // to close. The chooser opens centred on the first five names, unmarked, and must stay up until the
    // last act; each act that does something is heard.
    void answers_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("acts");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("clicks");
        QTest::newRow("twenty: by fours, up jumps to the top") << numbered(20) << "v4 v8 v12 v15 v15 ^11 ^7 ^0 annuler"
                                                               << "" << 9;
        QTest::newRow("eleven: stops on the last five") << numbered(11) << "v4 v6 v6 ^0 annuler"
                                                        << "" << 5;
        QTest::newRow("five: never moves") << numbered(5) << "v0 v0 ^0 annuler"
                                           << "" << 4;
        QTest::newRow("one: never moves") << numbered(1) << "v0 ^0 annuler"
                                          << "" << 3;
        QTest::newRow("empty labels take no click, scrolling drops the mark")
            << numbered(3) << "L1 L2 L3 L4 m2 v0 m charger close"
            << "" << 4;
        QTest::newRow("Charger waits for a mark") << numbered(8) << "charger esc ret L2 charger"
                                                  << "JOUEUR02" << 3;
        QTest::newRow("a name marked after scrolling") << numbered(20) << "L0 v4 v8 L3 m3 charger"
                                                       << "JOUEUR11" << 5;
        QTest::newRow("Annuler answers nothing; a wide name fits")
            << (numbered(4) << QString(16, QLatin1Char('M')) << "ZOE") << "L3 annuler"
            << "" << 2;
        QTest::newRow("a close request answers nothing") << numbered(4) << "L3 close"
                                                         << "" << 1;
        QTest::newRow("a bare extension takes a row but cannot be picked")
            << QStringList{"", "ALAIN", "BRUNO"} << "L0 charger L1 charger"
            << "ALAIN" << 3;
    }
    void answers()
    {
        QFETCH(QStringList, names);
        QFETCH(QString, acts);
        QFETCH(QString, answer);
        QFETCH(int, clicks);
        const QString got = run(chooser(names), [&](frmFile *f) {
            QCOMPARE((std::pair{f->windowTitle(), f->geometry().center()}),
                     (std::pair{QStringLiteral("Selecteur fichier"), fond->geometry().center()}));
            QCOMPARE(captions(f), view(names, 0));
            QVERIFY(marked(f).isEmpty());
            for (ClickLabel *label : f->labF)
                QVERIFY(label->fontMetrics().horizontalAdvance(label->text()) <= label->width());
            for (const QString &act : acts.split(u' ')) {
                QVERIFY2(f->isVisible(), qPrintable("closed before " + act));
                const int n = act.mid(1).toInt();
                if (act[0] == u'L') click(f->labF[n]);
                if (act[0] == u'v' || act[0] == u'^') {
                    click(f->imgScroll[act[0] == u'v']);
                    QCOMPARE(f->mPremier, n);
                    QCOMPARE(captions(f), view(names, n));
                }
                if (act[0] == u'm') QCOMPARE(marked(f), act.size() > 1 ? QList<int>{n} : QList<int>{});
                if (act == "charger" || act == "annuler") click(f->reponse[act == "annuler"]);
                if (act == "esc" || act == "ret") QTest::keyClick(f, act == "esc" ? Qt::Key_Escape : Qt::Key_Return);
                if (act == "close") f->close();
            }
        });
        QCOMPARE(got, answer);
        QCOMPARE(fond->tambour.played, QStringList(clicks, kClick));
    }
};

QTEST_MAIN(TestFrmFile)
#include "tst_frmFile.moc"
