// SPDX-License-Identifier: MIT
// Shapes given by signed distance, lit from the top left, and the small
// compositing steps that every drawing file uses.

#include "art.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace art {

namespace {

constexpr int32_t kSamples = 4; // per side of a pixel

struct Vec3 {
    double x, y, z;
};

Vec3 normalised(Vec3 v)
{
    const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    return {v.x / length, v.y / length, v.z / length};
}

double dot(Vec3 a, Vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

// Light from the top left, a little in front of the picture.
const Vec3 kLight = normalised({-0.55, -0.7, 1.0});
const Vec3 kHalfway = normalised({kLight.x, kLight.y, kLight.z + 1.0});

// Slope of the relief's height profile at u, the distance from the edge as a
// share of the bevel.
double slope(const Relief &relief, double u)
{
    if (u >= 1.0)
        return 0.0;
    if (relief.dome) {
        const double w = 1.0 - u;
        return relief.depth * std::min(4.0, w / std::sqrt(std::max(1e-6, 1.0 - w * w)));
    }
    return relief.depth * std::numbers::pi / 2 * std::cos(u * std::numbers::pi / 2);
}

// Brightness factor (1 on a flat top) and highlight for a surface normal.
std::pair<double, double> lighting(const Relief &relief, Vec3 normal)
{
    const double diffuse = std::max(0.0, dot(normal, kLight)) / kLight.z;
    const double factor = std::max(0.12, 0.3 + 0.7 * diffuse);
    double highlight = 0.0;
    if (relief.gloss > 0.0) {
        const double flat = std::pow(kHalfway.z, relief.shininess);
        highlight = relief.gloss * std::max(0.0, std::pow(std::max(0.0, dot(normal, kHalfway)), relief.shininess) - flat);
    }
    return {factor, highlight};
}

void boxBlurAlpha(std::vector<double> &alpha, int32_t w, int32_t h, int32_t radius)
{
    // Three passes spread the alpha 3 * radius pixels beyond where it is not zero; further out it
    // stays zero, so only that area is worked on.
    QRect reach;
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x)
            if (alpha[y * w + x] != 0.0) reach |= QRect(x, y, 1, 1);
    reach = reach.adjusted(-3 * radius, -3 * radius, 3 * radius, 3 * radius).intersected(QRect(0, 0, w, h));
    std::vector<double> tmp(alpha.size());
    for (int32_t pass = 0; pass < 3; ++pass) {
        for (int32_t y = reach.top(); y <= reach.bottom(); ++y)
            for (int32_t x = reach.left(); x <= reach.right(); ++x) {
                double sum = 0;
                for (int32_t k = -radius; k <= radius; ++k)
                    sum += alpha[y * w + std::clamp(x + k, 0, w - 1)];
                tmp[y * w + x] = sum / (2 * radius + 1);
            }
        for (int32_t y = reach.top(); y <= reach.bottom(); ++y)
            for (int32_t x = reach.left(); x <= reach.right(); ++x) {
                double sum = 0;
                for (int32_t k = -radius; k <= radius; ++k)
                    sum += tmp[std::clamp(y + k, 0, h - 1) * w + x];
                alpha[y * w + x] = sum / (2 * radius + 1);
            }
    }
}

// An image of the device size and ratio given, coloured by the alpha moved by `offset` device pixels.
QImage colouredAlpha(const std::vector<double> &alpha, QSize size, qreal ratio, QColor colour, double opacity,
                     QPoint offset)
{
    QImage out(size, QImage::Format_ARGB32_Premultiplied);
    out.setDevicePixelRatio(ratio);
    out.fill(Qt::transparent);
    for (int32_t y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(out.scanLine(y));
        for (int32_t x = 0; x < size.width(); ++x) {
            const int32_t sx = x - offset.x();
            const int32_t sy = y - offset.y();
            if (sx < 0 || sy < 0 || sx >= size.width() || sy >= size.height())
                continue;
            const double a = std::clamp(alpha[sy * size.width() + sx] * opacity, 0.0, 1.0);
            line[x] = qRgba(static_cast<int32_t>(colour.red() * a), static_cast<int32_t>(colour.green() * a),
                            static_cast<int32_t>(colour.blue() * a), static_cast<int32_t>(std::lround(255 * a)));
        }
    }
    return out;
}

std::vector<double> alphaOf(const QImage &picture)
{
    const QImage source = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    std::vector<double> alpha(static_cast<size_t>(source.width()) * source.height());
    for (int32_t y = 0; y < source.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        for (int32_t x = 0; x < source.width(); ++x)
            alpha[y * source.width() + x] = qAlpha(line[x]) / 255.0;
    }
    return alpha;
}

int32_t gScale = 1;

} // namespace

void setScale(int32_t scale) { gScale = scale; }

int32_t scale() { return gScale; }

QImage canvas(QSize size, QImage::Format format)
{
    QImage image(size * gScale, format);
    image.setDevicePixelRatio(gScale);
    image.fill(Qt::transparent);
    return image;
}

QSize logicalSize(const QImage &image) { return image.deviceIndependentSize().toSize(); }

QRect devicePixels(QRect logical) { return QRect(logical.topLeft() * gScale, logical.size() * gScale); }

Shape roundedBox(QRectF box, double radius)
{
    const QPointF c = box.center();
    const double hx = box.width() / 2 - radius;
    const double hy = box.height() / 2 - radius;
    return [=](double x, double y) {
        const double qx = std::abs(x - c.x()) - hx;
        const double qy = std::abs(y - c.y()) - hy;
        const double outside = std::hypot(std::max(qx, 0.0), std::max(qy, 0.0));
        return outside + std::min(std::max(qx, qy), 0.0) - radius;
    };
}

Shape disc(QPointF centre, double radius)
{
    return [=](double x, double y) { return std::hypot(x - centre.x(), y - centre.y()) - radius; };
}

Shape ring(QPointF centre, double inner, double outer)
{
    const double middle = (inner + outer) / 2;
    const double half = (outer - inner) / 2;
    return [=](double x, double y) { return std::abs(std::hypot(x - centre.x(), y - centre.y()) - middle) - half; };
}

QImage lit(const QImage &material, const Shape &shape, const Relief &relief)
{
    const QImage source = material.convertToFormat(QImage::Format_RGB32);
    QImage out(source.size(), QImage::Format_ARGB32_Premultiplied);
    const double s = source.devicePixelRatio();
    out.setDevicePixelRatio(s);
    out.fill(Qt::transparent);
    // The step of the slope's estimate: a third of a device pixel, in logical pixels.
    const double e = 0.35 / s;
    const std::pair<double, double> flatTop = lighting(relief, Vec3{0, 0, 1});
    for (int32_t py = 0; py < out.height(); ++py) {
        const auto *in = reinterpret_cast<const QRgb *>(source.constScanLine(py));
        auto *line = reinterpret_cast<QRgb *>(out.scanLine(py));
        for (int32_t px = 0; px < out.width(); ++px) {
            // Skip pixels that lie wholly outside the shape.
            const double centre = shape((px + 0.5) / s, (py + 0.5) / s);
            if (centre * s > 1.0) continue;
            // On a pixel wholly within the flat top (no sample lies more than 0.53 device pixels
            // from its centre) every sample is lit alike, and the shape need not be asked.
            const bool flat = centre <= -(relief.bevel + 0.75 / s);
            int32_t covered = 0;
            double factor = 0;
            double highlight = 0;
            for (int32_t sy = 0; sy < kSamples; ++sy)
                for (int32_t sx = 0; sx < kSamples; ++sx) {
                    if (flat) {
                        ++covered;
                        factor += flatTop.first;
                        highlight += flatTop.second;
                        continue;
                    }
                    const double x = (px + (sx + 0.5) / kSamples) / s;
                    const double y = (py + (sy + 0.5) / kSamples) / s;
                    const double d = shape(x, y);
                    if (d > 0)
                        continue;
                    ++covered;
                    Vec3 normal{0, 0, 1};
                    const double rise = relief.bevel > 0 ? slope(relief, -d / relief.bevel) : 0.0;
                    if (rise != 0.0) {
                        const double gx = (shape(x + e, y) - shape(x - e, y)) / (2 * e);
                        const double gy = (shape(x, y + e) - shape(x, y - e)) / (2 * e);
                        normal = normalised({gx * rise, gy * rise, 1.0});
                    }
                    const auto [f, h] = lighting(relief, normal);
                    factor += f;
                    highlight += h;
                }
            if (covered == 0)
                continue;
            const double a = static_cast<double>(covered) / (kSamples * kSamples);
            factor /= covered;
            highlight = highlight / covered * 255.0;
            const auto channel = [&](int32_t c) {
                const double v = std::clamp(c * factor + highlight, 0.0, 255.0);
                return static_cast<int32_t>(std::lround(v * a));
            };
            line[px] = qRgba(channel(qRed(in[px])), channel(qGreen(in[px])), channel(qBlue(in[px])),
                             static_cast<int32_t>(std::lround(255 * a)));
        }
    }
    return out;
}

QImage shadowOf(const QImage &picture, int32_t blur, QPoint offset, double opacity)
{
    const int32_t s = static_cast<int32_t>(picture.devicePixelRatio());
    std::vector<double> alpha = alphaOf(picture);
    if (blur > 0) boxBlurAlpha(alpha, picture.width(), picture.height(), blur * s);
    return colouredAlpha(alpha, picture.size(), s, QColor(10, 6, 4), opacity, offset * s);
}

QImage glowOf(const QImage &picture, int32_t blur, QColor colour, double opacity)
{
    const int32_t s = static_cast<int32_t>(picture.devicePixelRatio());
    std::vector<double> alpha = alphaOf(picture);
    boxBlurAlpha(alpha, picture.width(), picture.height(), blur * s);
    return colouredAlpha(alpha, picture.size(), s, colour, opacity, {});
}

QImage pathImage(QSize size, const QPainterPath &path)
{
    QImage out = canvas(size);
    QPainter painter(&out);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPath(path);
    return out;
}

QImage tinted(const QImage &coverage, QColor colour)
{
    return colouredAlpha(alphaOf(coverage), coverage.size(), coverage.devicePixelRatio(), colour, colour.alphaF(), {});
}

QImage clipped(const QImage &material, const QImage &coverage)
{
    const QImage source = material.convertToFormat(QImage::Format_RGB32);
    const QImage cut = coverage.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QImage out(source.size(), QImage::Format_ARGB32_Premultiplied);
    out.setDevicePixelRatio(source.devicePixelRatio());
    for (int32_t y = 0; y < out.height(); ++y) {
        const auto *in = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        const auto *alpha = reinterpret_cast<const QRgb *>(cut.constScanLine(y));
        auto *line = reinterpret_cast<QRgb *>(out.scanLine(y));
        for (int32_t x = 0; x < out.width(); ++x) {
            const int32_t a = qAlpha(alpha[x]);
            line[x] = qRgba(qRed(in[x]) * a / 255, qGreen(in[x]) * a / 255, qBlue(in[x]) * a / 255, a);
        }
    }
    return out;
}

void drawOver(QImage &target, const QImage &layer, QPoint at)
{
    QPainter painter(&target);
    painter.drawImage(at, layer);
}

MaskedSprite splitMasked(const QImage &sprite, const QImage &outline, QColor ground)
{
    const QImage source = sprite.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage shape = outline.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    MaskedSprite out{QImage(source.size(), QImage::Format_RGB32), QImage(source.size(), QImage::Format_RGB32)};
    out.image.setDevicePixelRatio(source.devicePixelRatio());
    out.mask.setDevicePixelRatio(source.devicePixelRatio());
    for (int32_t y = 0; y < source.height(); ++y) {
        const auto *in = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        auto *image = reinterpret_cast<QRgb *>(out.image.scanLine(y));
        auto *mask = reinterpret_cast<QRgb *>(out.mask.scanLine(y));
        const auto *edge = reinterpret_cast<const QRgb *>(shape.constScanLine(y));
        for (int32_t x = 0; x < source.width(); ++x) {
            const int32_t a = qAlpha(in[x]);
            if (qAlpha(edge[x]) < 128) {
                image[x] = qRgb(255, 255, 255);
                mask[x] = qRgb(0, 0, 0);
                continue;
            }
            const auto over = [&](int32_t c, int32_t g) { return std::min(255, c + g * (255 - a) / 255); };
            image[x] = qRgb(over(qRed(in[x]), ground.red()), over(qGreen(in[x]), ground.green()),
                            over(qBlue(in[x]), ground.blue()));
            mask[x] = qRgb(255, 255, 255);
        }
    }
    return out;
}

} // namespace art
