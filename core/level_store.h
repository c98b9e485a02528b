// SPDX-License-Identifier: MIT
// The level stores built into the program, and the number of levels each holds.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <string_view>

// Loads resources 100, 101 and 102 into gNiveaux1, gNiveaux2 and gNiveaux3.
void ChargeNiveaux();

// The whole of a read-only program resource, by numeric id and type name (any case);
// empty when there is no such resource.
QByteArray loadResource(int32_t id, const QString &type);

// Bytes of one level record of game 1, 2 or 3.
int32_t bytesPerLevel(int32_t game);

// Number of levels in the store of game 1, 2 or 3: its size over the record size.
int32_t levelCount(int32_t game);

// The bytes of a store as the game models read them.
std::string_view storeBytes(const QByteArray &store);
