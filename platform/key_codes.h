#pragma once

#include <qnamespace.h>

class QKeyEvent;

namespace platform {

/// The code of the key itself, whatever the modifiers: letters and digits as their capital ASCII
/// code, keypad digits from 96, function keys from 112, -1 for keys without a code of their own.
[[nodiscard]] int key_code(const QKeyEvent& key);

/// A sum of 1 for Shift, 2 for Ctrl and 4 for Alt.
[[nodiscard]] int shift_state(Qt::KeyboardModifiers held);

}  // namespace platform
