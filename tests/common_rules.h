#pragma once

#include <gtest/gtest.h>

#include "test_store.h"
#include "user.h"

namespace harness {

/// Fills the empty tables with what most tests are about: a field of each kind, and
///
///     1 敬称           氏名 (10)
///                        東（部分一致） (11, lines 1)
///                        以外 (12)
///                          不明 (13), the text 様
///     2 空             without rules; 21 is reserved for its top field
///     3 宛名           a folder
///       4 会社         a folder
///         5 御中       御中 (22), the text 御中
///     30 日付          取引開始日 (30)
///     31 数値          年齢 (31)
///     32 二択          会員 (32)
///     33 新規          氏名 (33)
///
/// The counters are 33 for definitions, 40 for rules, 7 for conditions.
void add_common_rules(test_store& store);

/// A test on a store with the common rules.
class common_rules : public testing::Test {
 protected:
  using rows = std::vector<std::string>;

  common_rules() { add_common_rules(store); }

  /// Opens a definition, clicks a node of its rule tree and presses a button of the editor. The
  /// script begins in the dialog and ends in the editor, which is left by its button.
  void edit_at(const std::string& definition, const std::string& node, const std::string& button,
               const std::function<void()>& script);

  /// The rows of the table that belong to the definition.
  rows rules(int definition, const std::string& columns, const std::string& where = "true");
  rows lines(int definition, const std::string& columns);
  std::string counters() { return store.value("select * from seqno"); }

  const std::string gone = "対象の行は他のプログラムによって削除されています。一覧を読み直します。";
  test_store store;
};

}  // namespace harness
