// SPDX-License-Identifier: MIT
#pragma once

// Sine and exponential built from plain arithmetic only. The C library's versions may differ
// in their last bit from one system to another; these give the same samples everywhere, so
// the shipped sound files can be rebuilt byte for byte.

// The sine of an angle given in whole turns (1.0 is a full circle).
double sineOfTurns(double turns);

// e raised to x.
double exponential(double x);
