#pragma once

#include <cstddef>

namespace ta_vorlumine {

/// How many characters (code points) a title, a folder's name and a text to compare with may have.
inline constexpr std::size_t longest_text = 100;

}  // namespace ta_vorlumine
