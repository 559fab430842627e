#include <stdexcept>

#include "controls/tree/ss_tree.h"

namespace ta_vorlumine {

Node::Node(SSTree& tree, const tree_node& node)
    : tree_(&tree),
      at_(node.parent->children[node.row].get()),
      node_(node.parent->children[node.row]) {}

tree_node& Node::get() const {
  if (node_.expired()) throw std::runtime_error("the tree node is gone");
  return *at_;
}

Node Node::relative(const tree_node* node) const {
  return node && node->parent ? Node(*tree_, *node) : Node();
}

void Node::Text(std::string_view text) const {
  get().text = text;
  tree_->show_appearance(get());
}

void Node::Tag(std::string_view tag) const {
  get().tag = tag;
}

void Node::Font(bool bold, int size) const {
  get().bold = bold;
  get().font_size = size;
  tree_->show_appearance(get());
}

void Node::ForeColor(RGB colour) const {
  get().colour = colour;
  tree_->show_appearance(get());
}

void Node::Image(std::string_view key) const {
  get().image = key;
  tree_->show_appearance(get());
}

void Node::ExpandedImage(std::string_view key) const {
  get().expanded_image = key;
  tree_->show_appearance(get());
}

void Node::kind(std::string_view kind) const {
  get().kind = kind;
}

void Node::Expanded(bool expanded) const {
  tree_node& node = get();
  if (node.expanded == expanded) return;
  node.expanded = expanded;
  tree_->show_expansion(node);
}

Node Node::parent() const {
  return relative(get().parent);
}

void Node::parent(const Node& parent) const {
  for (const tree_node* above = &parent.get(); above; above = above->parent) {
    if (above == &get()) throw std::runtime_error("a tree node cannot move below itself");
  }
  tree_->move(get(), parent.get());
}

Node Node::Child() const {
  const auto& children = get().children;
  return relative(children.empty() ? nullptr : children.front().get());
}

Node Node::Next() const {
  const tree_node& node = get();
  const auto& siblings = node.parent->children;
  return relative(node.row + 1 < siblings.size() ? siblings[node.row + 1].get() : nullptr);
}

Node Node::Previous() const {
  const tree_node& node = get();
  return relative(node.row > 0 ? node.parent->children[node.row - 1].get() : nullptr);
}

Node Node::LastSibling() const {
  return relative(get().parent->children.back().get());
}

Node Node::Root() const {
  const tree_node* node = &get();
  while (node->parent->parent) node = node->parent;
  return relative(node);
}

void node_collection::Clear() {
  tree_.clear();
}

std::size_t node_collection::Count() const {
  return tree_.nodes_.count();
}

bool node_collection::Has(std::string_view key) const {
  return tree_.nodes_.find(key) != nullptr;
}

Node node_collection::Item(std::string_view key) const {
  const tree_node* node = tree_.nodes_.find(key);
  if (!node) throw std::runtime_error("no such tree node: " + std::string(key));
  return tree_.in_hand(node);
}

Node node_collection::Item(std::size_t position) const {
  const tree_node* node = tree_.nodes_.at(position - 1);
  if (!node) throw std::runtime_error("no tree node at position " + std::to_string(position));
  return tree_.in_hand(node);
}

Node node_collection::Add(std::string_view key, std::string_view text, std::string_view tag) {
  return tree_.in_hand(&tree_.insert(tree_.nodes_.top(), key, text, tag));
}

Node node_collection::AddChild(std::string_view relative, std::string_view key,
                               std::string_view text, std::string_view tag) {
  return tree_.in_hand(&tree_.insert(Item(relative).get(), key, text, tag));
}

void node_collection::Remove(std::string_view key) {
  tree_.remove(Item(key).get());
}

void node_collection::Remove(std::size_t position) {
  tree_.remove(Item(position).get());
}

}  // namespace ta_vorlumine
