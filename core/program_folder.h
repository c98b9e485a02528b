// SPDX-License-Identifier: MIT
// The folder of a path, with exactly one trailing separator.
#pragma once

#include <QString>

QString withTrailingSeparator(const QString &folder);
