#include "controls/tree/tree_nodes.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace ta_vorlumine {
namespace {

void renumber_children(tree_node& parent, std::size_t from) {
  for (std::size_t i = from; i < parent.children.size(); ++i) parent.children[i]->row = i;
}

std::shared_ptr<tree_node> take_from_parent(tree_node& node) {
  tree_node& parent = *node.parent;
  const auto place = parent.children.begin() + static_cast<std::ptrdiff_t>(node.row);
  std::shared_ptr<tree_node> taken = std::move(*place);
  parent.children.erase(place);
  renumber_children(parent, node.row);
  return taken;
}

void append_to(tree_node& parent, std::shared_ptr<tree_node> node) {
  node->parent = &parent;
  node->row = parent.children.size();
  parent.children.push_back(std::move(node));
}

}  // namespace

tree_node::~tree_node() {
  auto below = std::move(children);
  while (!below.empty()) {
    const auto last = std::move(below.back());
    below.pop_back();
    std::move(last->children.begin(), last->children.end(), std::back_inserter(below));
    last->children.clear();
  }
}

tree_node& tree_nodes::add(tree_node& parent, std::string_view key, std::string_view text,
                           std::string_view tag) {
  auto node = std::make_shared<tree_node>();
  tree_node& added = *node;
  added.key = key;
  added.text = text;
  added.tag = tag;
  added.position = in_order_.size();
  if (!by_key_.emplace(added.key, &added).second) {
    throw std::runtime_error("the tree has this key already: " + added.key);
  }
  append_to(parent, std::move(node));
  in_order_.push_back(&added);
  return added;
}

void tree_nodes::forget(const tree_node& node) {
  std::vector<const tree_node*> left{&node};
  while (!left.empty()) {
    const tree_node& gone = *left.back();
    left.pop_back();
    by_key_.erase(gone.key);
    in_order_[gone.position] = nullptr;
    for (const auto& child : gone.children) left.push_back(child.get());
  }
}

void tree_nodes::remove(tree_node& node) {
  forget(node);
  std::erase(in_order_, nullptr);
  for (std::size_t i = 0; i < in_order_.size(); ++i) in_order_[i]->position = i;
  take_from_parent(node);
}

void tree_nodes::move(tree_node& node, tree_node& parent) {
  append_to(parent, take_from_parent(node));
}

void tree_nodes::clear() {
  by_key_.clear();
  in_order_.clear();
  top_.children.clear();
}

tree_node* tree_nodes::find(std::string_view key) const {
  const auto found = by_key_.find(key);
  return found == by_key_.end() ? nullptr : found->second;
}

tree_node* tree_nodes::at(std::size_t position) const {
  return position < in_order_.size() ? in_order_[position] : nullptr;
}

}  // namespace ta_vorlumine
