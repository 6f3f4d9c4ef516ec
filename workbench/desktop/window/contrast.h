// How well one colour is told from another.
#pragma once

#include <QColor>

namespace workbench {

/// What text needs on its background.
inline constexpr double TextContrast = 4.5;
/// What the frames of controls need on theirs.
inline constexpr double FrameContrast = 3.0;

/// From 1 for the same lightness to 21 for black on white.
double ContrastRatio(const QColor& first, const QColor& second);

/// The colour, mixed with as little of `strong` as it takes to have the ratio on the background;
/// `strong` itself where that is not enough.
QColor WithContrast(const QColor& color, const QColor& strong, const QColor& background,
                    double ratio);

} // namespace workbench
