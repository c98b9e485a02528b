// The saved-game chooser over a real folder of saved games, driven by clicks on its labels and arrows.
#include "frmFile.h"
#include "label_text.h"
#include "modal_answer.h"
#include "sound.h"
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

    // Saved games with these names, and the main window's list refreshed over them as play control does.
    void saveGames(const QStringList &names)
    {
        for (const QString &name : names) {
            QFile file(folder->filePath(name + QStringLiteral(".sml")));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        fond->filList.Path = folder->path();
        fond->filList.Refresh();
        QCOMPARE(fond->filList.ListCount(), names.size());
    }

    // The chooser over these names, loaded and shown without its modal loop, with no cue heard yet.
    std::unique_ptr<frmFile> shownChooser(const QStringList &names)
    {
        saveGames(names);
        auto f = std::make_unique<frmFile>(fond->dialogOwner(), fond->filList);
        f->Form_Load();
        f->show();
        if (!QTest::qWaitForWindowExposed(f.get())) return nullptr;
        fond->tambour.played.clear();
        return f;
    }

    // Runs the chooser over these names as play control does and gives its answer, failing when the
    // player's clicks did not end it.
    QString choose(const QStringList &names, std::function<void(frmFile *)> player)
    {
        saveGames(names);
        auto *f = new frmFile(fond->dialogOwner(), fond->filList);
        f->Form_Load();
        JoueSon(fond->tambour, QStringLiteral("marel008.wav"));
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
        QVERIFY(folder->isValid());
    }
    void cleanup()
    {
        fond.reset();
        folder.reset();
    }

    void opensOnTheFirstFiveNamesInPlace()
    {
        auto f = shownChooser(numbered(8));
        QVERIFY(f);
        QCOMPARE(f->windowTitle(), QStringLiteral("Selecteur fichier"));
        QCOMPARE(f->size(), QSize(300, 300));
        QCOMPARE(f->geometry().center(), fond->geometry().center());
        QCOMPARE(f->labMess->text(), QStringLiteral("Choisissez votre fichier :"));
        QCOMPARE(captions(f.get()), view(numbered(8), 0));
        QCOMPARE((QList<int>{f->mPremier, f->mChoix, f->mDernier}), (QList<int>{0, -1, 7}));
        QVERIFY(marked(f.get()).isEmpty());
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(f->labF[i]->geometry(), QRect(22, 58 + 22 * i, 230, 20));
            QCOMPARE(f->labF[i]->font().pixelSize(), 16);
            QCOMPARE(f->labF[i]->cursor().shape(), Qt::BitmapCursor);
            QCOMPARE(f->labF[i]->palette().color(QPalette::WindowText), f->palette().color(QPalette::WindowText));
            QCOMPARE(captionFault(f->labF[i], Qt::black), QString());
        }
        QCOMPARE(captionFault(f->labMess, Qt::black), QString());
        for (const auto &[w, place] : {std::pair<QWidget *, QRect>{f->labMess, {33, 30, 238, 20}},
                                       {f->imgScroll[0], {255, 59, 20, 51}},
                                       {f->imgScroll[1], {255, 111, 20, 51}},
                                       {f->reponse[1], {100, 223, 180, 27}}})
            QCOMPARE(w->geometry(), place);
        QCOMPARE(f->imgScroll[1]->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(f->reponse[0]->text(), QStringLiteral("Charger"));
        QCOMPARE(f->reponse[1]->text(), QStringLiteral("Annuler"));
        QCOMPARE(f->reponse[0]->font().pixelSize(), 19);
        QCOMPARE(f->reponse[0]->cursor().shape(), Qt::BitmapCursor);
        QVERIFY(fond->tambour.played.isEmpty());
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
        for (int count : {5, 3, 1})
            QTest::newRow(qPrintable(QStringLiteral("%1: never moves").arg(count)))
                << count << QList<int>{0, 0} << QList<int>{0};
    }
    void scrollSequences()
    {
        QFETCH(int, count);
        QFETCH(QList<int>, downs);
        QFETCH(QList<int>, ups);
        const QStringList names = numbered(count);
        auto f = shownChooser(names);
        QVERIFY(f);
        for (const auto &[arrow, firsts] : {std::pair{1, downs}, std::pair{0, ups}})
            for (int first : firsts) {
                click(f->imgScroll[arrow]);
                QCOMPARE(f->mPremier, first);
                QCOMPARE(captions(f.get()), view(names, first));
            }
        QCOMPARE(fond->tambour.played, QStringList(downs.size() + ups.size(), kClick));
    }

    void aClickMarksOneFilledNameAndScrollingDropsTheMark()
    {
        auto f = shownChooser(numbered(3));
        QVERIFY(f);
        for (int label : {1, 2}) {
            click(f->labF[label]);
            QCOMPARE(f->mChoix, label);
            QCOMPARE(marked(f.get()), QList<int>{label});
        }
        // Empty labels take no click and make no sound.
        click(f->labF[3]);
        click(f->labF[4]);
        QCOMPARE(f->mChoix, 2);
        QCOMPARE(marked(f.get()), QList<int>{2});
        QCOMPARE(fond->tambour.played.size(), 2);
        // The view does not move, yet the mark goes.
        click(f->imgScroll[1]);
        QCOMPARE(f->mPremier, 0);
        QCOMPARE(f->mChoix, -1);
        QVERIFY(marked(f.get()).isEmpty());
        QCOMPARE(fond->tambour.played.size(), 3);
    }

    // The player's acts, by word: "L<n>" clicks label n, "down" and "up" the arrows, "charger" and
    // "annuler" the buttons, "esc" and "ret" the keys, "close" asks the window to close. The chooser
    // must stay up until the last act, and each act that does something is heard.
    void answers_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("acts");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("clicks");
        QTest::newRow("Charger waits for a mark") << numbered(8) << "charger esc ret L2 charger"
                                                  << "JOUEUR02" << 3;
        QTest::newRow("a name marked after scrolling") << numbered(20) << "L0 down down L3 charger"
                                                       << "JOUEUR11" << 5;
        QTest::newRow("Annuler answers nothing") << numbered(4) << "L3 annuler"
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
        const QString got = choose(names, [&](frmFile *f) {
            QCOMPARE(captions(f), view(names, 0));
            for (const QString &act : acts.split(u' ')) {
                QVERIFY2(f->isVisible(), qPrintable("closed before " + act));
                if (act.startsWith(u'L')) click(f->labF[act.mid(1).toInt()]);
                if (act == "down" || act == "up") click(f->imgScroll[act == "down"]);
                if (act == "charger" || act == "annuler") click(f->reponse[act == "annuler"]);
                if (act == "esc" || act == "ret") QTest::keyClick(f, act == "esc" ? Qt::Key_Escape : Qt::Key_Return);
                if (act == "close") f->close();
            }
        });
        QCOMPARE(got, answer);
        QCOMPARE(fond->tambour.played, QStringList{"marel008.wav"} + QStringList(clicks, kClick));
    }

    void sixteenWideLettersFitTheLastLabel()
    {
        const QString wide(16, QLatin1Char('M'));
        auto f = shownChooser(numbered(4) << wide);
        QVERIFY(f);
        QCOMPARE(f->labF[4]->text(), wide);
        QVERIFY(f->labF[4]->fontMetrics().horizontalAdvance(wide) <= f->labF[4]->width());
    }
};

QTEST_MAIN(TestFrmFile)
#include "tst_frmFile.moc"
