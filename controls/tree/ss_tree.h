#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/tree/tree_nodes.h"
#include "platform/control.h"
#include "platform/image_list.h"
#include "platform/toolbar.h"

namespace ta_vorlumine {

class SSTree;

/// A node in hand. It may outlive its node: using it then raises std::runtime_error. A default one
/// is empty, and using that raises too.
class Node {
 public:
  Node() = default;

  [[nodiscard]] bool is_empty() const { return tree_ == nullptr; }

  [[nodiscard]] const std::string& Key() const { return get().key; }
  [[nodiscard]] const std::string& Text() const { return get().text; }
  [[nodiscard]] const std::string& Tag() const { return get().tag; }
  [[nodiscard]] bool Expanded() const { return get().expanded; }

  void Text(std::string_view text) const;
  void Tag(std::string_view tag) const;
  void Font(bool bold, int size) const;
  void ForeColor(RGB colour) const;
  void Image(std::string_view key) const;
  void ExpandedImage(std::string_view key) const;
  /// What a screen reader says that the node is: a text that lasts as long as the program.
  void kind(std::string_view kind) const;
  void Expanded(bool expanded) const;

  /// Empty at the top of the tree.
  [[nodiscard]] Node parent() const;
  /// Moves the node with its subtree, as last child. Raises if `parent` lies in that subtree.
  void parent(const Node& parent) const;
  [[nodiscard]] Node Child() const;     ///< first child, empty if there is none
  [[nodiscard]] Node Next() const;      ///< next sibling, empty after the last
  [[nodiscard]] Node Previous() const;  ///< previous sibling, empty before the first
  [[nodiscard]] Node LastSibling() const;
  [[nodiscard]] Node Root() const;
  [[nodiscard]] std::size_t Children() const { return get().children.size(); }
  [[nodiscard]] std::size_t Position() const { return get().position + 1; }  ///< from 1

 private:
  friend class SSTree;
  friend class node_collection;

  Node(SSTree& tree, const tree_node& node);
  [[nodiscard]] tree_node& get() const;
  [[nodiscard]] Node relative(const tree_node* node) const;

  SSTree* tree_ = nullptr;
  tree_node* at_ = nullptr;        // gone when node_ is
  std::weak_ptr<tree_node> node_;  // owns nothing: the tree does
};

/// The collection of a tree's nodes, in the order of adding.
class node_collection {
 public:
  explicit node_collection(SSTree& tree) : tree_(tree) {}

  void Clear();
  [[nodiscard]] std::size_t Count() const;
  /// By key, or by position from 1. Raises if there is none.
  [[nodiscard]] Node Item(std::string_view key) const;
  [[nodiscard]] Node Item(std::size_t position) const;
  [[nodiscard]] bool Has(std::string_view key) const;
  /// A node at the top of the tree. Raises if the key is taken.
  Node Add(std::string_view key, std::string_view text, std::string_view tag = {});
  /// A last child of the node with the key `relative`. Raises also if that is missing.
  Node AddChild(std::string_view relative, std::string_view key, std::string_view text,
                std::string_view tag = {});
  /// Each takes the node's subtree along.
  void Remove(std::string_view key);
  void Remove(std::size_t position);

 private:
  SSTree& tree_;
};

/// A button of a toolbar whose command works on the chosen node.
struct node_command {
  enum class key { none, insert, f2, del };

  std::string button;
  key pressed_by = key::none;
};

/// How nodes are moved without a mouse: the menu of a node marks it, and that of another takes it
/// there.
struct node_moving {
  std::function<bool(const Node&)> may_go;
  std::function<bool(const Node&)> takes_nodes;
  std::function<void(const Node& source, const Node& target)> move;
};

/// The tree control of both trees. Positions are in the toolkit's pixels within the control.
class SSTree : public platform::Control {
 public:
  SSTree(platform::Form& form, std::string name, std::string accessible_name);
  ~SSTree() override;

  /// More below each other would use up a small stack in the toolkit: whoever fills the tree leaves
  /// the rest out.
  static constexpr int most_levels = 2000;

  node_collection Nodes{*this};

  /// The pictures must live as long as the form is loaded.
  void set_image_list(const platform::ImageList& pictures);
  void Indentation(int twips);
  /// All rows are of one height, which lets a full store come up at once.
  void UniformRows(bool uniform);
  /// While drawing is off the tree shows nothing, so that a message in the middle of a load finds
  /// no half-built tree under it. Turning it on shows all that has changed.
  void Redraw(bool on);

  [[nodiscard]] Node SelectedItem();
  void SelectedItem(const Node& node);
  /// Puts the keyboard there, in sight, and nothing is selected.
  void move_keyboard(const Node& node);
  [[nodiscard]] Node TopNode();  ///< the first visible one; empty if none is
  void TopNode(const Node& node);
  [[nodiscard]] Node DropHighlight();
  void DropHighlight(const Node& node);  ///< an empty node clears it
  [[nodiscard]] std::size_t VisibleCount();
  [[nodiscard]] Node VisibleNode(std::size_t number);  ///< from 1; empty beyond the last
  [[nodiscard]] Node HitTest(int x, int y);            ///< empty where no node is

  /// Runs the drag gesture with the picture of `node` until the button is let go; on_drag_over
  /// tells the way and, once it is over, on_drop a drop onto the tree. A drag left otherwise
  /// clears the highlight.
  void Drag(const Node& node);

  /// The menu of a node offers those of the commands whose buttons are on; a key presses the first
  /// of its own that is.
  void offer(platform::Toolbar& toolbar, std::vector<node_command> commands);
  /// Without it, nodes stay where they are.
  node_moving moving;

  /// A node was clicked, or chosen by the keyboard; also one that was selected before.
  std::function<void(const Node&)> on_node_click;
  /// The node was double-clicked, or Enter was pressed on it.
  std::function<void(const Node&)> on_node_open;
  /// `button` and `buttons`: 1 left, 2 right, 4 middle, and their sums; `shift` as in
  /// platform::Form.
  std::function<void(int button, int shift, int x, int y)> on_mouse_down;
  /// With a button held, once the pointer has left the place of the press.
  std::function<void(int buttons, int shift, int x, int y)> on_mouse_move;
  std::function<void(int x, int y)> on_drag_over;
  std::function<void()> on_drop;

 private:
  friend class Node;
  friend class node_collection;
  class tree_view;

  std::unique_ptr<platform::toolkit_peer> make() override;
  tree_view& view();
  Node in_hand(const tree_node* node);
  void raise(const std::function<void()>& event);

  // What the handles do to the tree, with the view told of it while drawing is on.
  tree_node& insert(tree_node& parent, std::string_view key, std::string_view text,
                    std::string_view tag);
  void remove(tree_node& node);
  void move(tree_node& node, tree_node& parent);
  void clear();
  void show_appearance(const tree_node& node);
  void show_expansion(const tree_node& node);

  std::string accessible_name_;
  tree_nodes nodes_;
  std::weak_ptr<tree_node> drop_highlight_;
  platform::Toolbar* toolbar_ = nullptr;
  std::vector<node_command> commands_;
};

}  // namespace ta_vorlumine
