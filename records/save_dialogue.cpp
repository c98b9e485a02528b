// SPDX-License-Identifier: MIT
#include "save_dialogue.h"

#include "blanks.h"
#include "frmMess.h"
#include "modBase.h"
#include "saved_games.h"

namespace {

const QString kCrLf = QStringLiteral("\r\n");

QString askName(const DialogOwner &owner, const QString &firstLine, const QString &secondLine)
{
    return trimBlanks(AfficheMess(owner, firstLine + kCrLf + secondLine, QStringLiteral("Valider"), QStringLiteral("Annuler"),
                                  QString(), true, QString()));
}

} // namespace

void SauvePartie(const DialogOwner &owner, FileList &filList)
{
    if (gNomJoueur.isEmpty() || !gASauver) return;
    if (!gNomPartie.isEmpty()) {
        const QString reponse = AfficheMess(owner, QStringLiteral("Voulez-vous sauver la partie :") + kCrLf + gNomPartie,
                                            QStringLiteral("Oui"), QStringLiteral("Non"), QString(), false, QString());
        if (reponse == QLatin1String("Non")) return;
    } else {
        QString nom = askName(owner, QStringLiteral("Vous pouvez sauver votre partie,"), QStringLiteral("donnez-lui un nom."));
        if (nom.isEmpty()) return;
        while (!CreePartie(filList, nom)) {
            nom = askName(owner, QStringLiteral("Ce nom existe déjà ou ne convient pas."),
                          QStringLiteral("Donnez un nom à votre partie."));
            if (nom.isEmpty()) return;
        }
        gNomPartie = nom;
    }
    if (!rewriteSavedGame())
        AfficheMess(owner, QStringLiteral("Impossible d'enregistrer la partie :") + kCrLf + gNomPartie,
                    QStringLiteral("Fermer"), QString(), QString(), false, QString());
}
