// SPDX-License-Identifier: MIT
// How a colour is seen without one kind of cone: the simulation of Machado, Oliveira and Fernandes
// (2009) at severity 1, applied in linear RGB. For the pictures that show the game to such eyes and
// for the checks that its colours stay apart.
#pragma once

#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>

namespace colour_vision {

using Rgb = std::array<double, 3>; // linear, 0 to 1
using Matrix = std::array<Rgb, 3>;

struct Vision {
    const char *name;
    Matrix m;
};

inline constexpr Vision kVisions[] = {
    {"normal vision", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"protanopia",
     {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}}},
    {"deuteranopia",
     {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}}},
    {"tritanopia",
     {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}},
};

inline double toLinear(int channel)
{
    const double v = channel / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

inline int fromLinear(double v)
{
    const double c = v <= 0.0031308 ? 12.92 * v : 1.055 * std::pow(v, 1 / 2.4) - 0.055;
    return static_cast<int>(std::lround(std::clamp(c, 0.0, 1.0) * 255));
}

inline Rgb linear(QRgb p) { return {toLinear(qRed(p)), toLinear(qGreen(p)), toLinear(qBlue(p))}; }

inline Rgb seenBy(const Vision &vision, const Rgb &c)
{
    Rgb out{};
    for (int i = 0; i < 3; ++i)
        out[i] = std::clamp(vision.m[i][0] * c[0] + vision.m[i][1] * c[1] + vision.m[i][2] * c[2], 0.0, 1.0);
    return out;
}

inline QRgb seenBy(const Vision &vision, QRgb p)
{
    const Rgb c = seenBy(vision, linear(p));
    return qRgb(fromLinear(c[0]), fromLinear(c[1]), fromLinear(c[2]));
}

} // namespace colour_vision
