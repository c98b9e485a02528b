// SPDX-License-Identifier: MIT
#include "difficulty_picture.h"

#include "difficulty_curve.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kWidth = 960;
constexpr int kPanelHeight = 250;
constexpr int kLegendHeight = 24;
constexpr int kBlock = 20;
const QRect kPlot(70, 40, 860, 170); // inside a panel

// The grid lines of the value axis, from `low` to `high`.
std::vector<double> gridValues(double low, double high, bool logarithmic)
{
    std::vector<double> values;
    if (logarithmic) {
        for (double v = 1; v <= high * 1.0001; v *= 10) values.push_back(v);
        return values;
    }
    const double step = high > 50 ? 10 : 5;
    for (double v = std::floor(low / step) * step; v <= high; v += step) values.push_back(v);
    return values;
}

void drawPanel(QPainter &painter, const DifficultyCurve &curve, int top)
{
    const QRect plot = kPlot.translated(0, top);
    std::vector<double> finite;
    for (double d : curve.difficulty)
        if (std::isfinite(d)) finite.push_back(d);
    const double high = finite.empty() ? 10 : std::max(*std::max_element(finite.begin(), finite.end()) * 1.15, 2.0);
    const double low = curve.logarithmic ? 1 : 0;
    const auto yOf = [&](double v) {
        const double share = curve.logarithmic ? std::log(std::max(v, 1.0)) / std::log(high) : (v - low) / (high - low);
        return plot.bottom() - share * plot.height();
    };
    const int levels = static_cast<int>(curve.difficulty.size());
    const auto xOf = [&](double n) { return plot.left() + n * plot.width() / std::max(levels - 1, 1); };

    painter.setPen(QColor(40, 40, 40));
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(15);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QPointF(plot.left(), top + 24), curve.title);
    font.setPixelSize(12);
    font.setBold(false);
    painter.setFont(font);

    for (double v : gridValues(low, high, curve.logarithmic)) {
        painter.setPen(QColor(225, 225, 225));
        painter.drawLine(QPointF(plot.left(), yOf(v)), QPointF(plot.right(), yOf(v)));
        painter.setPen(QColor(90, 90, 90));
        painter.drawText(QRectF(0, yOf(v) - 8, plot.left() - 8, 16), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(v));
    }
    for (int n = 0; n < levels; n += kBlock) {
        painter.setPen(QColor(225, 225, 225));
        painter.drawLine(QPointF(xOf(n), plot.top()), QPointF(xOf(n), plot.bottom()));
        painter.setPen(QColor(90, 90, 90));
        painter.drawText(QRectF(xOf(n) - 30, plot.bottom() + 4, 60, 16), Qt::AlignCenter, QString::number(n));
    }
    painter.setPen(QColor(90, 90, 90));
    painter.drawRect(plot);

    QPainterPath medians;
    for (int first = 0; first < levels; first += kBlock) {
        const int last = std::min(first + kBlock, levels);
        const QPointF at(xOf((first + last - 1) / 2.0), yOf(medianOf(curve.difficulty, first, last)));
        if (first == 0) medians.moveTo(at);
        else medians.lineTo(at);
    }
    painter.setPen(QPen(curve.colour.darker(140), 2.5));
    painter.drawPath(medians);

    for (int n = 0; n < levels; ++n) {
        const double d = curve.difficulty[n];
        const QPointF at(xOf(n), std::isfinite(d) ? yOf(d) : plot.top());
        painter.setPen(QPen(curve.colour.darker(160), 1.5));
        painter.setBrush(curve.fixed[n] ? QBrush(Qt::white) : QBrush(curve.colour));
        if (std::isfinite(d)) {
            painter.drawEllipse(at, 3.5, 3.5);
        } else {
            const QPointF tip[3] = {at, at + QPointF(-5, 9), at + QPointF(5, 9)};
            painter.drawPolygon(tip, 3);
        }
    }
    painter.setBrush(Qt::NoBrush);
}

// What the marks mean, in a strip under the panels.
void drawLegend(QPainter &painter, const QColor &colour, double y)
{
    const QString names[] = {QStringLiteral("a level"), QStringLiteral("a fixed level"),
                             QStringLiteral("no win possible"), QStringLiteral("median of 20 levels")};
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(12);
    painter.setFont(font);
    double x = kPlot.left() + 8;
    for (int i = 0; i < 4; ++i) {
        painter.setPen(QPen(colour.darker(i == 3 ? 140 : 160), i == 3 ? 2.5 : 1.5));
        painter.setBrush(i == 0 ? QBrush(colour) : QBrush(Qt::white));
        if (i < 2) {
            painter.drawEllipse(QPointF(x, y), 3.5, 3.5);
        } else if (i == 2) {
            const QPointF tip[3] = {QPointF(x, y - 5), QPointF(x - 5, y + 4), QPointF(x + 5, y + 4)};
            painter.drawPolygon(tip, 3);
        } else {
            painter.drawLine(QPointF(x - 8, y), QPointF(x + 8, y));
        }
        painter.setPen(QColor(90, 90, 90));
        painter.drawText(QRectF(x + 12, y - 8, 200, 16), Qt::AlignLeft | Qt::AlignVCenter, names[i]);
        x += painter.fontMetrics().horizontalAdvance(names[i]) + 48;
    }
    painter.setBrush(Qt::NoBrush);
}

} // namespace

bool drawDifficultyPicture(const std::vector<DifficultyCurve> &curves, const QString &path)
{
    QImage image(kWidth, kPanelHeight * static_cast<int>(curves.size()) + kLegendHeight, QImage::Format_RGB32);
    image.fill(QColor(252, 251, 247));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (size_t i = 0; i < curves.size(); ++i) drawPanel(painter, curves[i], static_cast<int>(i) * kPanelHeight);
    drawLegend(painter, QColor(150, 150, 150), kPanelHeight * static_cast<double>(curves.size()) + kLegendHeight / 2.0);
    painter.end();
    return image.save(path, "PNG");
}
