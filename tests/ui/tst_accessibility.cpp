// The window and its dialogs as assistive technology finds them through Qt's accessibility
// interfaces: what each window lists (only what is shown), the picture buttons as named push buttons
// whose press does what a click does (and nothing where a click would be lost), the level and the
// clock named by their meaning.
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

const QStringList kMenu = {
    QStringLiteral("[Cliquez sur ce bouton pour lancer le jeu 1]"),
    QStringLiteral("[Cliquez sur ce bouton pour lancer le jeu 2]"),
    QStringLiteral("[Cliquez sur ce bouton pour lancer le jeu 3]"),
    QStringLiteral("[Cliquez sur ce bouton pour abandonner en cours de partie]"),
    QStringLiteral("[Cliquez sur ce bouton pour lire le tableau des scores]"),
    QStringLiteral("[Cliquez sur ce bouton pour accéder à l'aide]"),
    QStringLiteral("[Cliquez sur ce bouton pour quitter le programme]"),
};

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
        QCOMPARE(of(&fond())->role(), QAccessible::Window);
        QCOMPARE(of(&fond())->text(QAccessible::Name), QStringLiteral("Marelle"));
        QCOMPARE(treeOf(&fond()), kMenu + QStringList{QStringLiteral("[le catalogue Cerisaie Logiciels]")});
        QSignalSpy catalogue(fond().Picture1, &Surface::clicked);
        press(fond().Picture1);
        QCOMPARE(catalogue.size(), 1);
    }

    // A game started and left by presses alone, through the name question and the best-times screen;
    // in play the level and the clock are listed by their meaning, with what they show.
    void aGameIsPlayedByPresses()
    {
        answerInTurn({[](QWidget *dialog) {
            QCOMPARE(of(dialog)->role(), QAccessible::Dialog);
            const QStringList tree = treeOf(dialog);
            QVERIFY2(tree.endsWith(QStringLiteral("[Valider]")) && !tree.contains(QStringLiteral("hidden!")),
                     qPrintable(tree.join(u'|')));
            press(static_cast<frmMess *>(dialog)->reponse[0]);
        }});
        press(fond().imgMenu[0]);
        QCOMPARE(gJeu, 1);
        QCOMPARE(session.played(), QStringList({"marel008.wav", "marel009.wav", "marel002.wav"}));
        QAccessibleInterface *level = of(fond().labNiveau);
        QCOMPARE(level->text(QAccessible::Name), QStringLiteral("Niveau"));
        QCOMPARE(level->text(QAccessible::Value), QStringLiteral("000"));
        fond().myTimer_Timer();
        QCOMPARE(of(fond().labTemps)->text(QAccessible::Name), QStringLiteral("Chronomètre"));
        QCOMPARE(of(fond().labTemps)->text(QAccessible::Value), QStringLiteral(" 1"));
        QVERIFY(treeOf(&fond()).contains(QStringLiteral("Niveau")));

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
