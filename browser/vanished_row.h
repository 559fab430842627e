#pragma once

#include <stdexcept>
#include <string>

namespace ta_vorlumine {

/// The row under a command is gone: another program has deleted it. The text is for the user; the
/// window that shows it loads its tree again.
class vanished_row : public std::runtime_error {
 public:
  vanished_row()
      : std::runtime_error(
            "対象の行は他のプログラムによって削除されています。一覧を読み直します。") {}
};

/// Raises vanished_row unless `replace` holds the row.
void require_title_row(const std::string& replace_no);

}  // namespace ta_vorlumine
