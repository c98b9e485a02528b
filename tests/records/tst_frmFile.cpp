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

    void opensOnTheFirstFiveNamesInPlace()
    {
        const QString wide(16, QLatin1Char('M'));
        const QStringList names = numbered(4) << wide << QStringLiteral("ZOE"); // in the order of the list
        run(chooser(names), [&](frmFile *f) {
            QCOMPARE(f->windowTitle(), QStringLiteral("Selecteur fichier"));
            QCOMPARE(f->geometry().center(), fond->geometry().center());
            QCOMPARE(captions(f), view(names, 0));
            QVERIFY(marked(f).isEmpty());
            QVERIFY(f->labF[4]->fontMetrics().horizontalAdvance(wide) <= f->labF[4]->width());
            click(f->reponse[1]);
        });
    }

    // Down clicks, then up clicks: the first index after each, the view always in step, a cue each.
    void scrollSequences_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QList<int>>("downs");
        QTest::addColumn<QList<int>>("ups");
        QTest::newRow("twenty: by fours, up jumps to the top")
            << 20 << QList<int>{4, 8, 12, 15, 15} << QList<int>{11, 7, 0};
        QTest::newRow("eleven: stops on the last five") << 11 << QList<int>{4, 6, 6} << QList<int>{0};
        QTest::newRow("five: never moves") << 5 << QList<int>{0, 0} << QList<int>{0};
        QTest::newRow("one: never moves") << 1 << QList<int>{0} << QList<int>{0};
    }
    void scrollSequences()
    {
        QFETCH(int, count);
        QFETCH(QList<int>, downs);
        QFETCH(QList<int>, ups);
        const QStringList names = numbered(count);
        run(chooser(names), [&](frmFile *f) {
            for (const auto &[arrow, firsts] : {std::pair{1, downs}, std::pair{0, ups}})
                for (int first : firsts) {
                    click(f->imgScroll[arrow]);
                    QCOMPARE(f->mPremier, first);
                    QCOMPARE(captions(f), view(names, first));
                }
            click(f->reponse[1]);
        });
        QCOMPARE(fond->tambour.played, QStringList(downs.size() + ups.size() + 1, kClick));
    }

    void aClickMarksOneFilledNameAndScrollingDropsTheMark()
    {
        run(chooser(numbered(3)), [&](frmFile *f) {
            for (int label : {1, 2, 3, 4}) click(f->labF[label]); // the empty labels take no click
            QCOMPARE(f->mChoix, 2);
            QCOMPARE(marked(f), QList<int>{2});
            click(f->imgScroll[1]); // the view does not move, yet the mark goes
            QCOMPARE(f->mChoix, -1);
            QVERIFY(marked(f).isEmpty());
            f->close();
        });
        QCOMPARE(fond->tambour.played, QStringList(3, kClick));
    }

    // The player's acts, by word: "L<n>" clicks label n, "down" the arrow, "charger" and "annuler" the
    // buttons, "esc" and "ret" the keys, "close" asks the window to close. The chooser must stay up
    // until the last act, and each act that does something is heard.
    void answers_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("acts");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("clicks");
        QTest::newRow("Charger waits for a mark") << numbered(8) << "charger esc ret L2 charger" << "JOUEUR02" << 3;
        QTest::newRow("a name marked after scrolling") << numbered(20) << "L0 down down L3 charger" << "JOUEUR11" << 5;
        QTest::newRow("Annuler answers nothing") << numbered(4) << "L3 annuler" << "" << 2;
        QTest::newRow("a close request answers nothing") << numbered(4) << "L3 close" << "" << 1;
        QTest::newRow("a bare extension takes a row but cannot be picked")
            << QStringList{"", "ALAIN", "BRUNO"} << "L0 charger L1 charger" << "ALAIN" << 3;
    }
    void answers()
    {
        QFETCH(QStringList, names);
        QFETCH(QString, acts);
        QFETCH(QString, answer);
        QFETCH(int, clicks);
        const QString got = run(chooser(names), [&](frmFile *f) {
            for (const QString &act : acts.split(u' ')) {
                QVERIFY2(f->isVisible(), qPrintable("closed before " + act));
                if (act.startsWith(u'L')) click(f->labF[act.mid(1).toInt()]);
                if (act == "down") click(f->imgScroll[1]);
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
