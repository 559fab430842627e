#pragma once

#include <string>

#include "controls/tree/ss_tree.h"
#include "rules/vanished_row.h"

namespace ta_vorlumine {

/// A second child was about to go where the rule tree has room for one.
class taken_place : public outdated_view {
 public:
  taken_place()
      : outdated_view(
            "この位置には項目または置換値がすでに設定されています。一覧を読み直します。") {}
};

/// Raises vanished_row unless the store still holds the definition under edit and, but for the
/// root, the selected node of its rule tree.
void require_selected_node();

/// Raises taken_place also, if a row hangs below the selected node already.
void require_free_place();

/// Whether rows hang below the row `key` of the definition under edit; "0" is the root.
[[nodiscard]] bool has_children(const std::string& key);

/// The otherwise branch that would stand alone without `condition`; empty if there is none, or if
/// other conditions remain, in the store also those that the tree doesn't show yet.
[[nodiscard]] Node lone_otherwise(const Node& condition);

}  // namespace ta_vorlumine
