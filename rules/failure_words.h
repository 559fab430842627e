#pragma once

#include <exception>
#include <string>

namespace ta_vorlumine {

/// What the user reads of a failure: a sentence for its kind, which says what to do if there is
/// something to do, and below it the engine's own text. A text made for the user stays as it is.
[[nodiscard]] std::string words_for(const std::exception& failure);

}  // namespace ta_vorlumine
