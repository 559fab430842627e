#pragma once

#include <stdexcept>

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

/// A second child was about to go where the rule tree takes only one.
class occupied_branch : public outdated_view {
 public:
  occupied_branch()
      : outdated_view(
            "この位置には項目または置換値がすでに設定されています。一覧を読み直します。") {}
};

}  // namespace ta_vorlumine
