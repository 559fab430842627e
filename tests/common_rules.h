#pragma once

#include <gtest/gtest.h>

#include "test_store.h"
#include "user.h"

namespace harness {

/// A test on a store with the rules of common_rules.sql, and what is looked up in them.
class common_rules : public testing::Test {
 protected:
  using rows = std::vector<std::string>;

  common_rules() { store.run_script("common_rules.sql"); }

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
