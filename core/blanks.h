// SPDX-License-Identifier: MIT
// Blanks, as names and answers are trimmed of them.
#pragma once

#include <QString>

// The text without its leading and trailing spaces; tabs and other white space stay.
QString trimBlanks(const QString &text);
