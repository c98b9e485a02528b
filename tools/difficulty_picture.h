// SPDX-License-Identifier: MIT
// Draws the difficulty curves of the three games into one picture.
#pragma once

#include <QColor>
#include <QString>

#include <vector>

struct DifficultyCurve {
    QString title;
    std::vector<double> difficulty; // per level; infinite for a level that cannot be won
    std::vector<bool> fixed;        // the levels whose records are fixed in advance
    bool logarithmic;
    QColor colour;
};

// One panel per curve, one above the other: a point per level, hollow for a fixed level and at the
// top edge for a level that cannot be won, and a line through the median of each block of 20 levels.
// Saves the picture as PNG; false when it cannot be written.
bool drawDifficultyPicture(const std::vector<DifficultyCurve> &curves, const QString &path);
