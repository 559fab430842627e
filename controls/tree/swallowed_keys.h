#pragma once

namespace ta_vorlumine {

/// Sets the code of a key that a tree must never see to 0: Ctrl with X, C or V; and F9, the 3 of
/// the number pad and F7, whatever is held with them, since their codes are those of x, c and v.
inline void swallow_clipboard_keys(int& key_code, int shift) {
  const bool capital = key_code == 'X' || key_code == 'C' || key_code == 'V';
  const bool small = key_code == 'x' || key_code == 'c' || key_code == 'v';
  if ((capital && shift == 2) || small) key_code = 0;
}

}  // namespace ta_vorlumine
