// SPDX-License-Identifier: MIT
#include "plain_math.h"

#include <cmath>

namespace {

constexpr double kTwoPi = 6.283185307179586;

} // namespace

double sineOfTurns(double turns)
{
    // Fold onto the first quarter turn, where the series converges quickly; each step is exact.
    double t = turns - std::floor(turns);
    double sign = 1.0;
    if (t >= 0.5) {
        t -= 0.5;
        sign = -1.0;
    }
    if (t > 0.25) t = 0.5 - t;

    const double x = t * kTwoPi;
    const double xx = x * x;
    double term = x;
    double sum = x;
    for (int n = 1; n <= 9; ++n) {
        term *= -xx / static_cast<double>((2 * n) * (2 * n + 1));
        sum += term;
    }
    return sign * sum;
}

double exponential(double x)
{
    if (x < -700.0) return 0.0;
    // Halve the argument until the series is short, then square the result back up.
    int halvings = 0;
    while (std::fabs(x) > 0.125) {
        x *= 0.5;
        ++halvings;
    }
    double term = 1.0;
    double sum = 1.0;
    for (int n = 1; n <= 10; ++n) {
        term *= x / static_cast<double>(n);
        sum += term;
    }
    for (; halvings > 0; --halvings) sum *= sum;
    return sum;
}
