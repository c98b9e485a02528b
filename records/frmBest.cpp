// SPDX-License-Identifier: MIT
#include "frmBest.h"

#include "best_times.h"
#include "fonts.h"
#include "pointers.h"
#include "sound.h"
#include "sound_cues.h"

#include <QCloseEvent>
#include <cmath>

namespace {

// Tops of the name and score labels, one pair per row, game after game.
constexpr int kNomTop[9] = {24, 78, 127, 184, 238, 287, 344, 398, 447};
constexpr int kScoreTop[9] = {44, 97, 147, 204, 257, 307, 364, 417, 467};

// A number's digits behind a run of zeros, of which only the last `width` characters stand.
QString lastDigits(qint64 n, int width) { return (QString(width, QLatin1Char('0')) + QString::number(n)).right(width); }

QLabel *tableLabel(QWidget *parent, const QRect &place, const QFont &font)
{
    auto *label = new QLabel(parent);
    label->setGeometry(place);
    label->setFont(font);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setTextFormat(Qt::PlainText);
    label->setStyleSheet(QStringLiteral("color: black; background: transparent;"));
    return label;
}

} // namespace

frmBest::frmBest(const DialogOwner &owner)
    : PictureDialog(owner, QStringLiteral("best.jpg"), QStringLiteral("Scores"))
{

    for (int i = 0; i < 9; ++i) {
        labNom[i] = tableLabel(this, QRect(26, kNomTop[i], 348, 20), boldArial(15));
        labScore[i] = tableLabel(this, QRect(100, kScoreTop[i], 200, 20), plainArial(13));
    }

    Image1 = new HotSpot(this);
    Image1->setGeometry(110, 505, 179, 30);
    Image1->setCursor(customPointer(owner.window));
    Image1->setAccessibleName(QStringLiteral("Fermer"));
    connect(Image1, &HotSpot::clicked, this, &frmBest::Image1_Click);
}

void frmBest::Form_Load()
{
    for (int i = 0; i < 9; ++i) {
        const BestTable table = bestTable(i / 3 + 1);
        const int row = i % 3 + 1;
        labNom[i]->setText(table.noms[row]);
        labScore[i]->setText(QStringLiteral("niveau ") + lastDigits(table.niveaux[row], 3)
                             + FormatTemps(table.temps[row]));
    }
}

QString frmBest::FormatTemps(double t)
{
    const double h = std::trunc(t / 3600);
    const double r = t - h * 3600;
    const double m = std::trunc(r / 60);
    // Halves go to the even second, the rounding of the program's other whole numbers.
    const double s = std::nearbyint(r - m * 60);
    return QStringLiteral(" en ") + QString::number(static_cast<qint64>(h)) + QStringLiteral("h ")
           + lastDigits(static_cast<qint64>(m), 2) + QStringLiteral("min ") + lastDigits(static_cast<qint64>(s), 2)
           + QStringLiteral("s ");
}

void frmBest::Image1_Click()
{
    JoueSon(mTambour, cue::kClick);
    hide();
}

// The window system's close acts as the close plate does.
void frmBest::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (isVisible()) Image1_Click();
}
