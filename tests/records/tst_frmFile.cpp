// The saved-game chooser over a real folder of saved games, driven by clicks on its labels and arrows.
#include "frmFile.h"
#include "modal_run.h"
#include "sound.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

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
    for (int i = first; i < first + 5; ++i) shown << (i < names.size() ? names[i] : QString());
    return shown;
}

// Whether the label shows the grey of the mark, looked at where its text never reaches.
bool looksMarked(frmFile *f, int index)
{
    const QPoint corner = f->labF[index]->geometry().topLeft() + QPoint(2, 2);
    return f->grab(QRect(corner, QSize(1, 1))).toImage().pixelColor(0, 0) == QColor(128, 128, 128);
}

int markedCount(frmFile *f)
{
    int count = 0;
    for (int i = 0; i < 5; ++i) count += looksMarked(f, i);
    return count;
}

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

    // The chooser loaded and shown without its modal loop, for clicks whose effect is looked at.
    std::unique_ptr<frmFile> shownChooser()
    {
        auto f = std::make_unique<frmFile>(mainWindow());
        f->Form_Load();
        f->show();
        if (!QTest::qWaitForWindowExposed(f.get())) return nullptr;
        fond->tambour.played.clear();
        return f;
    }

    // Clicks one arrow again and again; gives the first index after each click, checking the view.
    static QList<int> scroll(frmFile *f, int arrow, int times, const QStringList &names)
    {
        QList<int> firsts;
        for (int n = 0; n < times; ++n) {
            QTest::mouseClick(f->imgScroll[arrow], Qt::LeftButton);
            firsts << f->mPremier;
            if (captions(f) != view(names, f->mPremier)) QTest::qFail("view out of step", __FILE__, __LINE__);
        }
        return firsts;
    }

    // Runs the chooser as play control does and gives its answer; `closed` tells whether the player's
    // clicks ended it.
    QString choose(std::function<void(frmFile *)> player, bool *closed = nullptr)
    {
        auto *f = new frmFile(mainWindow());
        f->Form_Load();
        JoueSon(QStringLiteral("marel008.wav"));
        const bool ended = execWith<frmFile>(f, player);
        const QString answer = f->Tag;
        delete f;
        if (closed) *closed = ended;
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
        saveGames(numbered(8));
        auto f = shownChooser();
        QVERIFY(f);
        QCOMPARE(f->windowTitle(), QStringLiteral("Selecteur fichier"));
        QCOMPARE(f->size(), QSize(300, 300));
        QCOMPARE(f->geometry().center(), fond->geometry().center());
        QCOMPARE(f->labMess->text(), QStringLiteral("Choisissez votre fichier :"));
        QCOMPARE(f->labMess->geometry(), QRect(33, 30, 238, 20));
        QCOMPARE(captions(f.get()), view(numbered(8), 0));
        QCOMPARE(f->mPremier, 0);
        QCOMPARE(f->mChoix, -1);
        QCOMPARE(f->mDernier, 7);
        QCOMPARE(markedCount(f.get()), 0);
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(f->labF[i]->geometry(), QRect(22, 58 + 22 * i, 230, 20));
            QCOMPARE(f->labF[i]->font().pixelSize(), 16);
            QCOMPARE(f->labF[i]->cursor().shape(), Qt::BitmapCursor);
            QCOMPARE(f->labF[i]->palette().color(QPalette::WindowText), f->palette().color(QPalette::WindowText));
        }
        QCOMPARE(f->imgScroll[0]->geometry(), QRect(255, 59, 20, 51));
        QCOMPARE(f->imgScroll[1]->geometry(), QRect(255, 111, 20, 51));
        QCOMPARE(f->imgScroll[1]->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(f->reponse[0]->text(), QStringLiteral("Charger"));
        QCOMPARE(f->reponse[1]->text(), QStringLiteral("Annuler"));
        QCOMPARE(f->reponse[1]->geometry(), QRect(100, 223, 180, 27));
        QCOMPARE(f->reponse[0]->font().pixelSize(), 19);
        QCOMPARE(f->reponse[0]->cursor().shape(), Qt::BitmapCursor);
        QVERIFY(fond->tambour.played.isEmpty());
    }

    void twentyNamesScrollByFoursAndUpJumpsToTheTop()
    {
        const QStringList names = numbered(20);
        saveGames(names);
        auto f = shownChooser();
        QVERIFY(f);
        QCOMPARE(f->mPremier, 0);
        QCOMPARE(scroll(f.get(), 1, 5, names), QList<int>({4, 8, 12, 15, 15}));
        QCOMPARE(scroll(f.get(), 0, 3, names), QList<int>({11, 7, 0}));
        QCOMPARE(fond->tambour.played, QStringList(8, QStringLiteral("marel009.wav")));
    }

    void elevenNamesStopWithTheLastFiveInView()
    {
        const QStringList names = numbered(11);
        saveGames(names);
        auto f = shownChooser();
        QVERIFY(f);
        QCOMPARE(scroll(f.get(), 1, 3, names), QList<int>({4, 6, 6}));
        QCOMPARE(scroll(f.get(), 0, 1, names), QList<int>({0}));
    }

    void fiveNamesOrFewerNeverMove_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("five") << 5;
        QTest::newRow("three") << 3;
        QTest::newRow("one") << 1;
    }
    void fiveNamesOrFewerNeverMove()
    {
        QFETCH(int, count);
        const QStringList names = numbered(count);
        saveGames(names);
        auto f = shownChooser();
        QVERIFY(f);
        QCOMPARE(scroll(f.get(), 1, 2, names), QList<int>({0, 0}));
        QCOMPARE(scroll(f.get(), 0, 1, names), QList<int>({0}));
        QCOMPARE(fond->tambour.played.size(), 3);
    }

    void aClickMarksOneNameAndScrollingDropsTheMark()
    {
        saveGames(numbered(3));
        auto f = shownChooser();
        QVERIFY(f);
        QTest::mouseClick(f->labF[1], Qt::LeftButton);
        QCOMPARE(f->mChoix, 1);
        QVERIFY(looksMarked(f.get(), 1));
        QCOMPARE(markedCount(f.get()), 1);
        QTest::mouseClick(f->labF[2], Qt::LeftButton);
        QCOMPARE(f->mChoix, 2);
        QVERIFY(looksMarked(f.get(), 2));
        QCOMPARE(markedCount(f.get()), 1);
        QCOMPARE(fond->tambour.played.size(), 2);

        // The view does not move, yet the mark goes.
        QTest::mouseClick(f->imgScroll[1], Qt::LeftButton);
        QCOMPARE(f->mPremier, 0);
        QCOMPARE(f->mChoix, -1);
        QCOMPARE(markedCount(f.get()), 0);
        QCOMPARE(fond->tambour.played.size(), 3);
    }

    void emptyLabelsTakeNoClickAndMakeNoSound()
    {
        saveGames(numbered(3));
        auto f = shownChooser();
        QVERIFY(f);
        QTest::mouseClick(f->labF[0], Qt::LeftButton);
        fond->tambour.played.clear();
        QTest::mouseClick(f->labF[3], Qt::LeftButton);
        QTest::mouseClick(f->labF[4], Qt::LeftButton);
        QCOMPARE(f->mChoix, 0);
        QVERIFY(looksMarked(f.get(), 0));
        QCOMPARE(markedCount(f.get()), 1);
        QVERIFY(fond->tambour.played.isEmpty());
    }

    void chargerWaitsForAMark()
    {
        saveGames(numbered(8));
        bool closed = false;
        const QString answer = choose(
            [this](frmFile *f) {
                QTest::mouseClick(f->reponse[0], Qt::LeftButton);
                QVERIFY(f->isVisible());
                QCOMPARE(fond->tambour.played, QStringList({"marel008.wav", "marel009.wav"}));
                QTest::keyClick(f, Qt::Key_Escape);
                QTest::keyClick(f, Qt::Key_Return);
                QVERIFY(f->isVisible());
                QTest::mouseClick(f->labF[2], Qt::LeftButton);
                QTest::mouseClick(f->reponse[0], Qt::LeftButton);
            },
            &closed);
        QVERIFY(closed);
        QCOMPARE(answer, QStringLiteral("JOUEUR02"));
        QCOMPARE(fond->tambour.played, QStringList({"marel008.wav", "marel009.wav", "marel009.wav", "marel009.wav"}));
    }

    void aNameMarkedAfterScrollingIsTheOneAnswered()
    {
        saveGames(numbered(20));
        bool closed = false;
        const QString answer = choose(
            [](frmFile *f) {
                QTest::mouseClick(f->labF[0], Qt::LeftButton);
                QTest::mouseClick(f->imgScroll[1], Qt::LeftButton);
                QTest::mouseClick(f->imgScroll[1], Qt::LeftButton);
                QTest::mouseClick(f->labF[3], Qt::LeftButton);
                QCOMPARE(f->mChoix, 11);
                QTest::mouseClick(f->reponse[0], Qt::LeftButton);
            },
            &closed);
        QVERIFY(closed);
        QCOMPARE(answer, QStringLiteral("JOUEUR11"));
    }

    void annulerAnswersNothing()
    {
        saveGames(numbered(4));
        bool closed = false;
        const QString answer = choose(
            [](frmFile *f) {
                QTest::mouseClick(f->labF[3], Qt::LeftButton);
                QTest::mouseClick(f->reponse[1], Qt::LeftButton);
            },
            &closed);
        QVERIFY(closed);
        QCOMPARE(answer, QString());
        QCOMPARE(fond->tambour.played.last(), QStringLiteral("marel009.wav"));
    }

    void aCloseRequestAnswersNothing()
    {
        saveGames(numbered(4));
        bool closed = false;
        const QString answer = choose(
            [](frmFile *f) {
                QTest::mouseClick(f->labF[3], Qt::LeftButton);
                f->close();
            },
            &closed);
        QVERIFY(closed);
        QCOMPARE(answer, QString());
    }

    void aBareExtensionTakesARowButCannotBePicked()
    {
        saveGames({QString(), QStringLiteral("ALAIN"), QStringLiteral("BRUNO")});
        bool closed = false;
        const QString answer = choose(
            [this](frmFile *f) {
                QCOMPARE(captions(f), QStringList({"", "ALAIN", "BRUNO", "", ""}));
                fond->tambour.played.clear();
                QTest::mouseClick(f->labF[0], Qt::LeftButton);
                QCOMPARE(f->mChoix, -1);
                QVERIFY(fond->tambour.played.isEmpty());
                QTest::mouseClick(f->labF[1], Qt::LeftButton);
                QTest::mouseClick(f->reponse[0], Qt::LeftButton);
            },
            &closed);
        QVERIFY(closed);
        QCOMPARE(answer, QStringLiteral("ALAIN"));
    }

    void sixteenWideLettersFitTheLastLabel()
    {
        const QString wide(16, QLatin1Char('M'));
        QStringList names = numbered(4);
        names << wide;
        saveGames(names);
        auto f = shownChooser();
        QVERIFY(f);
        QCOMPARE(f->labF[4]->text(), wide);
        QVERIFY(f->labF[4]->fontMetrics().horizontalAdvance(wide) <= f->labF[4]->width());
    }
};

QTEST_MAIN(TestFrmFile)
#include "tst_frmFile.moc"
