// SPDX-License-Identifier: MIT
// The pause after a won level: events go on being handled, the processor rests.
#pragma once

// Returns a little after the given seconds have gone by on a monotonic clock, handling events meanwhile.
void Pause(double secondes);

// Every pause is scaled by this factor, 1 in play; a test shortens pauses here.
double &pauseScale();
