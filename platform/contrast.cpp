#include "platform/contrast.h"

#include <cmath>

namespace platform {
namespace {

constexpr double enough = 4.5;  // what guidelines ask for text of ordinary size

double linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(double lighter, double darker) {
  return (lighter + 0.05) / (darker + 0.05);
}

QColor mixed_with_white(const QColor& colour, int percent) {
  const auto part = [percent](int value) { return value + (255 - value) * percent / 100; };
  return {part(colour.red()), part(colour.green()), part(colour.blue())};
}

}  // namespace

QColor readable_on(const QColor& ground, const QColor& colour) {
  const double behind = luminance(ground);
  const bool light = contrast(1, behind) < contrast(behind, 0);
  if (light) return colour;
  // White itself is readable on whatever is not light.
  QColor found = colour;
  for (int percent = 5; contrast(luminance(found), behind) < enough; percent += 5)
    found = mixed_with_white(colour, percent);
  return found;
}

}  // namespace platform
