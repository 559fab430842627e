#pragma once

#include <string>

#include "tool/store_rows.h"

namespace harness {

/// How the tree of the title browser, or of the editor, differs from the store; empty if in
/// nothing. `in_order`: the nodes also stand as a load puts them.
[[nodiscard]] std::string title_tree_difference(const rule_store::store_rows& rows, bool in_order);
[[nodiscard]] std::string rule_tree_difference(const rule_store::store_rows& rows);

}  // namespace harness
