// SPDX-License-Identifier: MIT
// Play control: what the seven menu buttons do in each state of gJeu, the start of a game, the
// question of a running game, the way from one won level to the next and the close of a game.
#include "codepage.h"
#include "documents.h"
#include "frmBest.h"
#include "frmFile.h"
#include "frmFond.h"
#include "frmMess.h"
#include "level_store.h"
#include "modBase.h"
#include "pause.h"
#include "save_dialogue.h"
#include "saved_games.h"
#include "sound.h"
#include "sound_cues.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>

namespace {

const QString kCrLf = QStringLiteral("\r\n");

} // namespace

void frmFond::imgMenu_Click(int Index)
{
    switch (Index) {
    case 0:
    case 1:
    case 2: LanceJeu(Index + 1); break;
    case 3: abandonOrReplay(); break;
    case 4: showBestTimes(); break;
    case 5: OuvreAide(this); break;
    case 6: quitQuestion(); break;
    default: break;
    }
}

namespace {

// What each game brings to play control: its screen, its preparation and its level set-up.
struct GameScreen {
    Surface *frmFond::*screen;
    void (frmFond::*prepare)();
    void (frmFond::*setUp)();
};

const GameScreen &gameScreen(int32_t jeu)
{
    static const GameScreen games[3] = {
        {&frmFond::pctEcran1, &frmFond::PrepareEcran1, &frmFond::ChargeNiveau1},
        {&frmFond::pctEcran2, &frmFond::PrepareEcran2, &frmFond::ChargeNiveau2},
        {&frmFond::pctEcran3, &frmFond::PrepareEcran3, &frmFond::ChargeNiveau3},
    };
    return games[jeu - 1];
}

} // namespace

Surface *frmFond::screenOf(int32_t jeu) const { return this->*gameScreen(jeu).screen; }
void frmFond::prepareScreenOf(int32_t jeu) { (this->*gameScreen(jeu).prepare)(); }
void frmFond::setUpLevelOf(int32_t jeu) { (this->*gameScreen(jeu).setUp)(); }

void frmFond::LanceJeu(int32_t jeu)
{
    if (gJeu != 0) return;
    filList.Path = gCheminData;
    filList.Refresh();
    QString reponse = QStringLiteral("Lancer");
    if (filList.ListCount() > 0)
        reponse = AfficheMess(dialogOwner(), QStringLiteral("Jeu %1").arg(jeu) + kCrLf
                                  + QStringLiteral("Vous pouvez lancer une nouvelle partie ou charger une partie "
                                                   "enregistrée."),
                              QStringLiteral("Lancer"), QStringLiteral("Charger"), QStringLiteral("Annuler"), false,
                              gNomJoueur);
    if (reponse == QLatin1String("Annuler")) return;

    setEnabled(false);
    gJeu = 10;
    AfficheMenu(1);
    gNbNiveaux = levelCount(jeu);

    if (reponse == QLatin1String("Lancer")) {
        gNiveau = 0;
        gNomPartie.clear();
        const QString nom = AfficheMess(dialogOwner(), QStringLiteral("Entrez votre nom de joueur"), QStringLiteral("Valider"),
                                        QString(), QString(), true, gNomJoueur);
        gNomJoueur = playerName(nom);
        gTempsTotal = 0;
    } else if (!loadChosenGame(jeu)) {
        AfficheMenu(0);
        gJeu = 0;
        setEnabled(true);
        return;
    }

    prepareScreenOf(jeu);
    setUpLevelOf(jeu);
    gTempsNiveau = 0;
    gASauver = false;
    myTimer.start();
    showClock();
    setEnabled(true);
    gJeu = jeu;
}

bool frmFond::loadChosenGame(int32_t jeu)
{
    auto *chooser = new frmFile(dialogOwner(), filList);
    chooser->Form_Load();
    JoueSon(tambour, cue::kDialog);
    chooser->exec();
    const QString nom = chooser->Tag;
    delete chooser;
    if (nom.isEmpty()) return false;

    const QString before = gNomPartie;
    gNomPartie = nom;
    if (!ChargePartie(jeu)) {
        gNomPartie = before;
        AfficheMess(dialogOwner(), QStringLiteral("Impossible de charger la partie :") + kCrLf + nom, QStringLiteral("Fermer"),
                    QString(), QString(), false, QString());
        return false;
    }
    if (gNiveau > gNbNiveaux - 1 || gNiveau == 999) {
        AfficheMess(dialogOwner(), QStringLiteral("Vous avez terminé le jeu %1 dans cette partie...").arg(jeu) + kCrLf
                        + QStringLiteral("Félicitations"),
                    QStringLiteral("Fermer"), QString(), QString(), false, QString());
        return false;
    }
    return true;
}

void frmFond::abandonOrReplay()
{
    if (gJeu < 1 || gJeu > 3) return;
    pctEcran1->hide();
    pctEcran2->hide();
    pctEcran3->hide();
    myTimer.stop();
    const QString reponse = AfficheMess(dialogOwner(), QStringLiteral("Que désirez-vous ?"), QStringLiteral("Abandonner"),
                                        QStringLiteral("Rejouer"), QStringLiteral("Annuler"), false, QString());
    if (reponse == QLatin1String("Annuler")) {
        screenOf(gJeu)->show();
        myTimer.start();
    } else if (reponse == QLatin1String("Rejouer")) {
        if (mCtrl) gNiveau = std::min(gNiveau + 1, gNbNiveaux - 1);
        prepareScreenOf(gJeu);
        setUpLevelOf(gJeu);
        gTempsNiveau = 0;
        myTimer.start();
        showClock();
    } else if (reponse == QLatin1String("Abandonner")) {
        leaveGame();
    }
}

void frmFond::leaveGame()
{
    SauvePartie(dialogOwner(), filList);
    labNiveau->hide();
    labTemps->hide();
    gASauver = false;
    gNomPartie.clear();
    gNiveau = 0;
    AfficheMenu(0);
    gJeu = 0;
}

void frmFond::showBestTimes()
{
    pctEcran1->hide();
    pctEcran2->hide();
    pctEcran3->hide();
    JoueSon(tambour, cue::kDialog);
    myTimer.stop();
    auto *best = new frmBest(dialogOwner());
    best->Form_Load();
    best->exec();
    delete best;
    if (gJeu >= 1 && gJeu <= 3) {
        screenOf(gJeu)->show();
        myTimer.start();
    }
}

void frmFond::quitQuestion()
{
    if (gJeu >= 1 && gJeu <= 3) return;
    const QString reponse = AfficheMess(dialogOwner(), QStringLiteral("Voulez-vous vraiment quitter le programme ?"),
                                        QStringLiteral("Oui"), QStringLiteral("Non"), QString(), false, QString());
    // Ends the event loop at once: quit() would first ask the windows to close, which closeEvent refuses.
    if (reponse == QLatin1String("Oui")) QCoreApplication::exit(0);
}

// A close request from the desktop (a key, the task bar, the session) does what button 6 does:
// the quit question when no game runs and nothing else is being asked, otherwise nothing.
void frmFond::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (isEnabled() && !QApplication::activeModalWidget()) quitQuestion();
}

bool frmFond::wonLevel(bool solved)
{
    setEnabled(false);
    if (!solved) {
        QCoreApplication::processEvents();
        setEnabled(true);
        return false;
    }
    countWonLevelTime();
    return true;
}

void frmFond::nextLevel(int32_t jeu, double secondes)
{
    Pause(secondes);
    gNiveau += 1;
    prepareScreenOf(jeu);
    setUpLevelOf(jeu);
    QCoreApplication::processEvents();
    myTimer.start();
    setEnabled(true);
}

void frmFond::closeGame(int32_t jeu)
{
    screenOf(jeu)->hide();
    gNiveau = 999;
    JoueSon(tambour, cue::kWin);
    Pause(3);
    AfficheMess(dialogOwner(), QStringLiteral("Félicitations ") + gNomJoueur + kCrLf + QStringLiteral("Vous venez de terminer") + kCrLf
                    + QStringLiteral("les ") + QString::number(gNbNiveaux) + QStringLiteral(" niveaux du jeu ")
                    + QString::number(jeu),
                QStringLiteral("Fermer"), QString(), QString(), false, QString());
    leaveGame();
    QCoreApplication::processEvents();
    setEnabled(true);
}
