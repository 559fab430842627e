#pragma once

#include <string_view>

#include "controls/tree/ss_tree.h"

namespace ta_vorlumine {

/// The look that a row of either tree has.
void show_as_row(const Node& node);

/// A tree that is filled anew: empty but for its root, whose key is "0", and not drawn until this
/// goes.
class tree_filling {
 public:
  /// The pictures must live as long as the tree's form is loaded.
  tree_filling(SSTree& tree, const platform::ImageList& pictures, std::string_view root_text,
               std::string_view root_tag = {});
  tree_filling(const tree_filling&) = delete;
  tree_filling& operator=(const tree_filling&) = delete;
  ~tree_filling();

  [[nodiscard]] const Node& root() const { return root_; }

 private:
  SSTree& tree_;
  Node root_;
};

}  // namespace ta_vorlumine
