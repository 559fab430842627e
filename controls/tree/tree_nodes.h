#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ta_vorlumine {

/// A colour by its red, green and blue parts, each 0 to 255.
struct RGB {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  RGB() = default;
  RGB(int r, int g, int b)
      : red(static_cast<std::uint8_t>(r)),
        green(static_cast<std::uint8_t>(g)),
        blue(static_cast<std::uint8_t>(b)) {}
};

struct tree_node {
  std::string key;
  std::string text;
  std::string tag;
  std::string image;
  std::string expanded_image;
  std::string_view kind;  ///< in words, which are part of the program
  RGB colour;
  int font_size = 9;
  bool bold = false;
  bool expanded = false;
  tree_node* parent = nullptr;  ///< the invisible top for a node without a parent
  std::size_t row = 0;          ///< place among its siblings
  std::size_t position = 0;     ///< place in the order of adding, from 0
  std::vector<std::shared_ptr<tree_node>> children;

  tree_node() = default;
  tree_node(const tree_node&) = delete;
  tree_node& operator=(const tree_node&) = delete;
  /// Takes the subtree down in a loop: a call for each level could use up a small stack.
  ~tree_node();
};

/// The nodes of a tree by key, by order of adding and by their family; knows nothing of windows.
class tree_nodes {
 public:
  /// Adds a node as last child of `parent`. Raises std::runtime_error if the key is taken.
  tree_node& add(tree_node& parent, std::string_view key, std::string_view text,
                 std::string_view tag);

  /// Removes a node with its subtree.
  void remove(tree_node& node);
  /// Makes `node` the last child of `parent`, which must not lie in its subtree.
  void move(tree_node& node, tree_node& parent);
  void clear();

  [[nodiscard]] std::size_t count() const { return in_order_.size(); }
  [[nodiscard]] tree_node* find(std::string_view key) const;
  /// By place in the order of adding, from 0; nothing beyond the end.
  [[nodiscard]] tree_node* at(std::size_t position) const;
  [[nodiscard]] tree_node& top() { return top_; }
  [[nodiscard]] const tree_node& top() const { return top_; }

 private:
  void forget(const tree_node& node);

  tree_node top_;
  std::unordered_map<std::string_view, tree_node*> by_key_;  // views into the nodes' own keys
  std::vector<tree_node*> in_order_;
};

}  // namespace ta_vorlumine
