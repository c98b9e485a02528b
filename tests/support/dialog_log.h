// SPDX-License-Identifier: MIT
// The message dialogs of a stretch of play, answered in turn and noted as they came up.
#pragma once

#include "play_session.h"

#include <vector>

// For as long as it lives, answers each message dialog that comes up with the next step: the step's
// note runs first, to look at the window as the dialog finds it, then the dialog is answered as
// PlaySession::reply does. A dialog without the step's button, or beyond the steps, is closed by its
// first button, so that an unexpected question fails the test instead of hanging it.
class DialogLog {
public:
    struct Step {
        QString caption;
        QString typed = {};
        std::function<void()> note = [] {};
    };

    DialogLog(PlaySession &session, std::vector<Step> steps) : mSession(session), mSteps(std::move(steps))
    {
        mWatch.start([this](QWidget *dialog) { answerShown(qobject_cast<frmMess *>(dialog)); });
    }

    // Each dialog as "message [buttons]", then " box:" and what its box held when it showed one.
    QStringList seen;

private:
    void answerShown(frmMess *mess)
    {
        if (!mess) return;
        QStringList buttons;
        for (ClickLabel *label : mess->reponse)
            if (!label->isHidden()) buttons << label->text();
        seen << mess->labMess->text() + QStringLiteral(" [%1]").arg(buttons.join(QLatin1Char('|')))
                    + (mess->txtReponse->isHidden() ? QString() : QStringLiteral(" box:") + mess->txtReponse->text());
        const qsizetype index = seen.size() - 1;
        if (index < qsizetype(mSteps.size()) && buttons.contains(mSteps[index].caption)) {
            mSteps[index].note();
            mSession.reply(mSteps[index].caption, mSteps[index].typed)(mess);
        } else if (!buttons.isEmpty()) {
            QTest::mouseClick(mess->reponse[0], Qt::LeftButton);
        }
    }

    PlaySession &mSession;
    std::vector<DialogLog::Step> mSteps;
    ModalWatch mWatch;
};

// The dialogs of a finished game as DialogLog notes them: the congratulations, then the offer to save.
inline QString congratulations(const char *player, int levels, int game)
{
    return QStringLiteral("Félicitations %1\nVous venez de terminer\nles %2 niveaux du jeu %3 [Fermer]")
        .arg(QLatin1String(player))
        .arg(levels)
        .arg(game);
}
inline const QString kSaveOffer =
    QStringLiteral("Vous pouvez sauver votre partie,\ndonnez-lui un nom. [Valider|Annuler] box:");
