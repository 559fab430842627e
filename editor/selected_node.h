#pragma once

namespace ta_vorlumine {

/// Raises vanished_row unless the store still holds the definition under edit and, but for the
/// root, the selected node of its rule tree.
void require_selected_node();

}  // namespace ta_vorlumine
