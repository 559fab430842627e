#pragma once

#include <QFont>

namespace platform {

/// The font of the windows: the first installed one of the usual Japanese faces.
[[nodiscard]] QFont window_font();

}  // namespace platform
