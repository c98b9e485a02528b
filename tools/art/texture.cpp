// SPDX-License-Identifier: MIT
// Seeded noise and the materials built on it: cherry wood for the frames, slate
// for the play area. Only the raw output of mt19937 is used, mapped here, so the
// pictures come out the same with any standard library.

#include "art.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace art {

namespace {

constexpr int32_t kLattice = 256;

double unitFrom(std::mt19937 &rng)
{
    return static_cast<double>(rng() >> 8) / 16777216.0;
}

double smooth(double t)
{
    return t * t * (3.0 - 2.0 * t);
}

QRgb shade(double r, double g, double b)
{
    const auto channel = [](double v) { return std::clamp(static_cast<int32_t>(std::lround(v)), 0, 255); };
    return qRgb(channel(r), channel(g), channel(b));
}

} // namespace

Noise::Noise(uint32_t seed) : lattice_(kLattice * kLattice)
{
    std::mt19937 rng(seed);
    for (double &v : lattice_)
        v = unitFrom(rng);
}

double Noise::at(double x, double y) const
{
    const double fx = std::floor(x);
    const double fy = std::floor(y);
    const int32_t x0 = static_cast<int32_t>(fx) & (kLattice - 1);
    const int32_t y0 = static_cast<int32_t>(fy) & (kLattice - 1);
    const int32_t x1 = (x0 + 1) & (kLattice - 1);
    const int32_t y1 = (y0 + 1) & (kLattice - 1);
    const double tx = smooth(x - fx);
    const double ty = smooth(y - fy);
    const double top = lattice_[y0 * kLattice + x0] * (1 - tx) + lattice_[y0 * kLattice + x1] * tx;
    const double bottom = lattice_[y1 * kLattice + x0] * (1 - tx) + lattice_[y1 * kLattice + x1] * tx;
    return top * (1 - ty) + bottom * ty;
}

double Noise::fractal(double x, double y, int32_t octaves) const
{
    double sum = 0;
    double weight = 0;
    double amplitude = 1;
    for (int32_t i = 0; i < octaves; ++i) {
        // Each octave is moved off the others so that their lattices do not line up.
        sum += amplitude * at(x + 17.3 * i, y + 31.7 * i);
        weight += amplitude;
        amplitude *= 0.5;
        x *= 2.03;
        y *= 2.03;
    }
    return sum / weight;
}

QImage cherryWood(QSize size, uint32_t seed, bool across)
{
    const Noise noise(seed);
    QImage image = canvas(size, QImage::Format_RGB32);
    const double s = scale();
    for (int32_t py = 0; py < image.height(); ++py) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(py));
        for (int32_t px = 0; px < image.width(); ++px) {
            // u runs along the grain, v across it, in logical pixels.
            const double u = (across ? py : px) / s;
            const double v = (across ? px : py) / s;
            const double warp = 9.0 * noise.fractal(u * 0.006, v * 0.02, 3);
            const double rings = 0.5 + 0.5 * std::sin((v + warp) * 0.55);
            const double figure = std::pow(rings, 3.0);
            const double fibre = noise.at(u * 0.03, v * 0.9);
            const double cloud = noise.fractal(u * 0.01, v * 0.01, 3);
            const double t = 0.55 * figure + 0.25 * fibre + 0.35 * cloud;
            line[px] = shade(88 + 44 * t, 38 + 22 * t, 26 + 12 * t);
        }
    }
    return image;
}

QImage slate(QSize size, uint32_t seed)
{
    const Noise noise(seed);
    QImage image = canvas(size, QImage::Format_RGB32);
    const double s = scale();
    for (int32_t py = 0; py < image.height(); ++py) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(py));
        for (int32_t px = 0; px < image.width(); ++px) {
            const double x = px / s;
            const double y = py / s;
            const double cloud = noise.fractal(x * 0.008, y * 0.008, 5) - 0.5;
            const double grain = noise.at(x * 0.45, y * 0.45) - 0.5;
            const double tint = noise.fractal(x * 0.003 + 50, y * 0.003 + 50, 2) - 0.5;
            // A soft pool of light in the middle, falling off towards the edges.
            const double dx = (x - size.width() / 2.0) / size.width();
            const double dy = (y - size.height() / 2.0) / size.height();
            const double pool = 1.06 - 0.5 * (dx * dx + dy * dy);
            const double l = pool * (1.0 + 0.28 * cloud + 0.06 * grain);
            line[px] = shade((66 + 8 * tint) * l, 70 * l, (74 - 6 * tint) * l);
        }
    }
    return image;
}

QImage flatColour(QSize size, QColor colour)
{
    QImage image = canvas(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QImage verticalGradient(QSize size, QColor top, QColor bottom)
{
    return verticalGradient(size, top, bottom, QRectF(0, 0, size.width(), size.height()));
}

QImage verticalGradient(QSize size, QColor top, QColor bottom, QRectF over)
{
    QImage image = canvas(size, QImage::Format_RGB32);
    const double s = scale();
    for (int32_t py = 0; py < image.height(); ++py) {
        const double t = std::clamp(((py + 0.5) / s - over.top()) / std::max(1.0, over.height()), 0.0, 1.0);
        const QRgb c = shade(top.red() + (bottom.red() - top.red()) * t,
                             top.green() + (bottom.green() - top.green()) * t,
                             top.blue() + (bottom.blue() - top.blue()) * t);
        std::fill_n(reinterpret_cast<QRgb *>(image.scanLine(py)), image.width(), c);
    }
    return image;
}

QColor playAreaGround()
{
    return QColor(64, 68, 72);
}

} // namespace art
