#include "controls/tree/ss_tree.h"

#include <utility>

#include "controls/tree/tree_view.h"
#include "platform/fonts.h"
#include "platform/form.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {

SSTree::SSTree(platform::Form& form, std::string name, std::string accessible_name)
    : Control(form, std::move(name)), accessible_name_(std::move(accessible_name)) {}

SSTree::~SSTree() = default;

std::unique_ptr<platform::toolkit_peer> SSTree::make() {
  nodes_.clear();
  auto* made = new tree_view(*this);
  made->setAccessibleName(platform::to_toolkit(accessible_name_));
  return std::make_unique<platform::toolkit_peer>(made);
}

SSTree::tree_view& SSTree::view() {
  return platform::as<tree_view>(peer());
}

void SSTree::raise(const std::function<void()>& event) {
  form().guarded(event);
}

Node SSTree::in_hand(const tree_node* node) {
  return node ? Node(*this, *node) : Node();
}

void SSTree::set_image_list(const platform::ImageList& pictures) {
  view().model.set_pictures(pictures);
}

void SSTree::Indentation(int twips) {
  view().setIndentation(platform::scaled_pixels(twips));
}

void SSTree::UniformRows(bool uniform) {
  view().setUniformRowHeights(uniform);
}

void SSTree::Redraw(bool on) {
  view().redraw(on);
}

Node SSTree::SelectedItem() {
  return in_hand(view().selected());
}

void SSTree::SelectedItem(const Node& node) {
  view().select(node.is_empty() ? nullptr : &node.get());
}

void SSTree::move_keyboard(const Node& node) {
  view().move_keyboard(node.get());
}

Node SSTree::TopNode() {
  return VisibleNode(1);
}

void SSTree::TopNode(const Node& node) {
  view().show_on_top(node.get());
}

Node SSTree::DropHighlight() {
  return in_hand(drop_highlight_.lock().get());
}

void SSTree::DropHighlight(const Node& node) {
  drop_highlight_ = node.node_;
  view().viewport()->update();
}

std::size_t SSTree::VisibleCount() {
  std::size_t count = 0;
  while (!VisibleNode(count + 1).is_empty()) ++count;
  return count;
}

Node SSTree::VisibleNode(std::size_t number) {
  return in_hand(view().visible(number));
}

Node SSTree::HitTest(int x, int y) {
  return in_hand(view().node_at(QPoint(x, y)));
}

void SSTree::Drag(const Node& node) {
  view().drag(node.get());
}

void SSTree::offer(platform::Toolbar& toolbar, std::vector<node_command> commands) {
  toolbar_ = &toolbar;
  commands_ = std::move(commands);
}

tree_node& SSTree::insert(tree_node& parent, std::string_view key, std::string_view text,
                          std::string_view tag) {
  return view().model.insert(parent, key, text, tag);
}

void SSTree::remove(tree_node& node) {
  view().remove(node);
}

void SSTree::move(tree_node& node, tree_node& parent) {
  view().move(node, parent);
}

void SSTree::clear() {
  view().clear();
}

void SSTree::show_appearance(const tree_node& node) {
  view().model.show_change(node);
}

void SSTree::show_expansion(const tree_node& node) {
  if (!view().model.hidden()) view().setExpanded(view().model.index_of(node), node.expanded);
}

}  // namespace ta_vorlumine
