#pragma once

#include <QFont>

namespace platform {

/// The font of the windows: the first installed one of the usual Japanese faces.
[[nodiscard]] QFont window_font();

/// How many times larger than the 9 points that the sizes of the windows were made for; 1 at least.
[[nodiscard]] double font_scale();

/// Twips, 1440 to the inch, as the toolkit's pixels, 96 to the inch, for windows of this font.
[[nodiscard]] int scaled_pixels(int twips);

}  // namespace platform
