#pragma once

#include <stdexcept>
#include <string>

namespace ta_vorlumine {

/// The store has changed under a command, so that what the window shows no longer holds and nothing
/// was written. The text is for the user; whoever shows it loads the tree again.
class outdated_view : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The row under a command is gone: another program has deleted it.
class vanished_row : public outdated_view {
 public:
  vanished_row()
      : outdated_view("対象の行は他のプログラムによって削除されています。一覧を読み直します。") {}
};

/// Raises vanished_row unless `replace` holds the row.
void require_title_row(const std::string& replace_no);

}  // namespace ta_vorlumine
