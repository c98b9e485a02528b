// SPDX-License-Identifier: MIT
// The window and its dialogs as assistive technology finds them through Qt's accessibility
// interfaces: what each window lists (only what is shown), the picture buttons as named push buttons
// whose press does what a click does (and nothing where a click would be lost), the labels named.
#include "frmBest.h"
#include "play_session.h"

#include <QAccessible>
#include <QSignalSpy>

namespace {

QAccessibleInterface *of(QObject *object) { return QAccessible::queryAccessibleInterface(object); }

// What a window lists: each child as its role and name, buttons as "[name]".
QStringList treeOf(QWidget *window)
{
    QStringList tree;
    QAccessibleInterface *parent = of(window);
    for (int i = 0; i < parent->childCount(); ++i) {
        QAccessibleInterface *child = parent->child(i);
        if (child->state().invisible) tree << QStringLiteral("hidden!");
        if (child->role() == QAccessible::Button) {
            if (child->actionInterface()->actionNames() != QStringList{QAccessibleActionInterface::pressAction()})
                tree << QStringLiteral("no press!");
            tree << QLatin1Char('[') + child->text(QAccessible::Name) + QLatin1Char(']');
        } else if (child->role() != QAccessible::Client) {
            tree << child->text(QAccessible::Name);
        }
    }
    return tree;
}

void press(QObject *button) { of(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); }

// The seven menu buttons, as "[name]".
QStringList menuButtons()
{
    QStringList names;
    for (const char *does : {"lancer le jeu 1", "lancer le jeu 2", "lancer le jeu 3", "abandonner en cours de partie",
                             "lire le tableau des scores", "accéder à l'aide", "quitter le programme"})
        names << QStringLiteral("[Cliquez sur ce bouton pour %1]").arg(QString::fromUtf8(does));
    return names;
}

} // namespace

class TestAccessibility : public QObject {
    Q_OBJECT

    PlaySession session;
    frmFond &fond() { return *session.fond; }

private slots:
    void init() { session.start(); }
    void cleanup() { session.fond.reset(); }

    // Idle, the window lists its buttons and the catalogue; the labels, screens and sheets are hidden.
    void theIdleWindowListsWhatItShows()
    {
        QCOMPARE(of(&fond())->text(QAccessible::Name), QStringLiteral("Marelle"));
        QCOMPARE(treeOf(&fond()), menuButtons() + QStringList{QStringLiteral("[le catalogue Cerisaie Logiciels]")});
        QSignalSpy catalogue(fond().Picture1, &Surface::clicked);
        press(fond().Picture1);
        QCOMPARE(catalogue.size(), 1);
    }

    // A game started by presses alone, through the name question, and the best-times screen closed.
    void aGameIsPlayedByPresses()
    {
        answerInTurn({[](QWidget *dialog) {
            const QStringList tree = treeOf(dialog);
            QVERIFY2(tree.endsWith(QStringLiteral("[Valider]")) && !tree.contains(QStringLiteral("hidden!")),
                     qPrintable(tree.join(u'|')));
            press(static_cast<frmMess *>(dialog)->reponse[0]);
        }});
        press(fond().imgMenu[0]);
        QCOMPARE(gJeu, 1);
        QCOMPARE(of(fond().labNiveau)->text(QAccessible::Name) + u'|' + of(fond().labTemps)->text(QAccessible::Name),
                 QStringLiteral("Niveau|Chronomètre"));

        // The best-times screen closes by its plate; while it is open the window's buttons do nothing.
        session.played().clear();
        answerInTurn({[this](QWidget *dialog) {
            auto *best = qobject_cast<frmBest *>(dialog);
            QVERIFY(best);
            press(fond().imgMenu[6]);
            QVERIFY(treeOf(best).contains(QStringLiteral("[Fermer]")));
            press(best->Image1);
        }});
        press(fond().imgMenu[4]);
        QCOMPARE(session.played(), QStringList({"marel008.wav", "marel009.wav"}));
        QCOMPARE(gJeu, 1);

        // With input off, a press is lost as a click would be.
        session.played().clear();
        fond().setEnabled(false);
        press(fond().imgMenu[3]);
        fond().setEnabled(true);
        QVERIFY(session.played().isEmpty());
    }
};

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
