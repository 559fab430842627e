#include "controls/tree/searched_texts.h"

#include <algorithm>
#include <iterator>

#include "controls/tree/tree_model.h"
#include "platform/folded_text.h"

namespace ta_vorlumine {

using platform::folded;

searched_texts::searched_texts(const tree_nodes& nodes) {
  std::vector<const tree_node*> left{&nodes.top()};
  while (!left.empty()) {
    const tree_node& node = *left.back();
    left.pop_back();
    if (node.parent) rows_.push_back({&node, folded(tree_model::shown_text(node))});
    for (auto child = node.children.rbegin(); child != node.children.rend(); ++child) {
      left.push_back(child->get());
    }
  }
}

void searched_texts::look_for(const QString& text) {
  hits_.clear();
  const QString wanted = folded(text);
  for (std::size_t place = 0; place < rows_.size() && !wanted.isEmpty(); ++place) {
    if (rows_[place].text.contains(wanted)) hits_.push_back(place);
  }
}

std::size_t searched_texts::next(const tree_node* node, bool may_stay) const {
  const std::size_t first = !node ? 0 : place_of(node) + (may_stay ? 0 : 1);
  const auto found = std::lower_bound(hits_.begin(), hits_.end(), first);
  return found == hits_.end() ? 0 : static_cast<std::size_t>(found - hits_.begin());
}

std::size_t searched_texts::previous(const tree_node* node) const {
  const auto found = std::lower_bound(hits_.begin(), hits_.end(), node ? place_of(node) : 0);
  return static_cast<std::size_t>((found == hits_.begin() ? hits_.end() : found) - hits_.begin()) -
         1;
}

std::size_t searched_texts::place_of(const tree_node* node) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(),
                                  [node](const row& each) { return each.node == node; });
  return static_cast<std::size_t>(found - rows_.begin());
}

}  // namespace ta_vorlumine
