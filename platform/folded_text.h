#pragma once

#include <QString>

namespace platform {

/// The same for two texts that differ only in the width, case or kana of their letters.
[[nodiscard]] QString folded(const QString& text);

}  // namespace platform
