#include "workbench/desktop/window/contrast.h"

#include <algorithm>
#include <cmath>

namespace workbench {
namespace {

// Light that a channel gives, as the eye takes it.
double Linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
         0.0722 * Linear(color.blueF());
}

QColor Mixed(const QColor& first, const QColor& second, int percent) {
  const auto mix = [percent](int from, int to) { return from + (to - from) * percent / 100; };
  return {mix(first.red(), second.red()), mix(first.green(), second.green()),
          mix(first.blue(), second.blue())};
}

} // namespace

double ContrastRatio(const QColor& first, const QColor& second) {
  constexpr double Glare = 0.05;
  const auto [dark, light] = std::minmax({Luminance(first), Luminance(second)});
  return (light + Glare) / (dark + Glare);
}

QColor WithContrast(const QColor& color, const QColor& strong, const QColor& background,
                    double ratio) {
  constexpr int Step = 5;
  for (int percent = 0; percent < 100; percent += Step) {
    const QColor mixed = Mixed(color, strong, percent);
    if (ContrastRatio(mixed, background) >= ratio)
      return mixed;
  }
  return strong;
}

} // namespace workbench
