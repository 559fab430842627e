#pragma once

#include <cstdint>
#include <optional>

#include "rules/row_key.h"

namespace ta_vorlumine {

/// The row of a new condition, as OK makes it. It remembers the last try: where the answer to a
/// commit was lost, the row may stand all the same, and a second OK must not make another.
class new_condition {
 public:
  /// Forgets the tries of an earlier opening.
  void reset() { tried_.reset(); }

  [[nodiscard]] bool was_tried() const { return tried_.has_value(); }

  /// Whether the row of an earlier OK stands. If it does, its number is shared().f_replace_cond_no
  /// again; else that is a number which is free now, as another program may have taken the one of
  /// the opening.
  [[nodiscard]] bool stands_already();

  /// Makes the row under the selected field, which has `children` so far; the first one brings the
  /// otherwise row along.
  void insert(std::int64_t children);

 private:
  struct row {
    row_key key;
    std::int16_t lines;
  };
  std::optional<row> tried_;
};

/// How many children the selected field has. Overwrites shared().basRS.
[[nodiscard]] std::int64_t count_children();

}  // namespace ta_vorlumine
