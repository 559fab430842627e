#pragma once

#include <QColor>

namespace platform {

/// The colour, made to be read on a light ground, as it can be read on `ground`: itself on a light
/// one, lighter on a dark one.
[[nodiscard]] QColor readable_on(const QColor& ground, const QColor& colour);

}  // namespace platform
