// SPDX-License-Identifier: MIT
// A player at the real window: the program started, pauses shortened, level stores cut down, and
// dialogs answered by clicks on their labels.
#pragma once

#include "file_bytes.h"
#include "frmFond.h"
#include "frmMess.h"
#include "level_store.h"
#include "modBase.h"
#include "modal_answer.h"
#include "started_window.h"

#include <QDir>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <limits>
#include <memory>

struct PlaySession {
    std::unique_ptr<frmFond> fond;
    std::unique_ptr<QTemporaryDir> home; // the user's data folder, new for each session

    // Starts the program at the idle window, on a data folder of its own.
    void start()
    {
        fond.reset();
        home = std::make_unique<QTemporaryDir>();
        qputenv("XDG_DATA_HOME", home->path().toUtf8());
        fond = startedWindow();
        QVERIFY(fond);
    }

    // Ends the program and starts it again on the same data folder, as a player who quits and comes back.
    void restart()
    {
        fond.reset();
        fond = startedWindow();
        QVERIFY(fond);
    }

    // Keeps only the given levels, in this order, in the store of a game.
    static void keepLevels(int game, const QList<int> &levels)
    {
        QByteArray &store = game == 1 ? gNiveaux1 : game == 2 ? gNiveaux2 : gNiveaux3;
        const int size = bytesPerLevel(game);
        QByteArray kept;
        for (int level : levels) kept += store.mid(level * size, size);
        store = kept;
    }

    // Answers the next message dialog: types into its box if one is given, then clicks the label with
    // that caption. The dialog's message is kept in lastMessage.
    void answer(const QString &caption, const QString &box = QString()) { whenModal(reply(caption, box)); }

    // The action that answers a message dialog as answer() does.
    ModalAction reply(const QString &caption, const QString &box = QString())
    {
        return [this, caption, box](QWidget *dialog) {
            auto *mess = qobject_cast<frmMess *>(dialog);
            QVERIFY(mess);
            lastMessage = mess->labMess->text();
            if (!mess->txtReponse->isHidden()) {
                mess->txtReponse->clear();
                QTest::keyClicks(mess->txtReponse, box);
            }
            for (ClickLabel *label : mess->reponse) {
                if (!label->isHidden() && label->text() == caption) {
                    QTest::mouseClick(label, Qt::LeftButton);
                    return;
                }
            }
            QFAIL(qPrintable(QStringLiteral("no button ") + caption));
        };
    }

    void clickMenu(int index) { QTest::mouseClick(fond->imgMenu[index], Qt::LeftButton); }

    // Starts a game from its button, as the player given.
    void startGame(int game, const QString &player)
    {
        answer(QStringLiteral("Valider"), player);
        clickMenu(game - 1);
    }

    // A press of a mouse button at a point of a screen, as the window system delivers it.
    static void press(Surface *screen, Qt::MouseButton button, QPoint at)
    {
        QTest::mousePress(screen, button, {}, at);
        QTest::mouseRelease(screen, button, {}, at);
    }

    // Starts a game from its button on the given levels only; the cues of the start are forgotten.
    void startOn(int game, const QList<int> &levels, const QString &player = QStringLiteral("anne"))
    {
        keepLevels(game, levels);
        startGame(game, player);
        QCOMPARE(gJeu, game);
        played().clear();
    }

    // The folder where the program keeps its files, under the session's own data folder, and what it holds.
    QString dataFolder() const { return home->path() + QStringLiteral("/cerscore/marel32b/"); }
    QStringList dataFiles() const { return entriesOf(dataFolder()); }
    static QStringList entriesOf(const QString &folder)
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                                      QDir::Name);
    }
    QByteArray dataFile(const QString &name) const { return readAll(dataFolder() + name); }
    QByteArray bestTimes() const { return dataFile(QStringLiteral("mlbestTime.dat")); }

    // The cues the program has played so far.
    QStringList &played() { return fond->tambour.played; }

    // A clock that ticks only when told: seconds of play are then counted by the test.
    void stopClock() { fond->myTimer.setInterval(std::numeric_limits<int>::max()); }
    void tick(int seconds = 1)
    {
        for (int i = 0; i < seconds; ++i) fond->myTimer_Timer();
    }

    QString lastMessage; // the message of the last dialog answered, line breaks as the label shows them
};
