// SPDX-License-Identifier: MIT
// The program's one typeface, Arial, bold or plain, at pixel sizes so that text lands on the same pixels everywhere.
#pragma once

#include <QFont>

QFont boldArial(int pixels);
QFont plainArial(int pixels);
