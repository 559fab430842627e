#include "controls/tree/tree_filling.h"

namespace ta_vorlumine {
namespace {

const RGB root_colour(200, 160, 50);
const RGB row_colour(0, 0, 255);
constexpr int font_size = 10;

}  // namespace

void show_as_row(const Node& node) {
  node.Font(false, font_size);
  node.ForeColor(row_colour);
}

tree_filling::tree_filling(SSTree& tree, const platform::ImageList& pictures,
                           std::string_view root_text, std::string_view root_tag)
    : tree_(tree) {
  tree.set_image_list(pictures);
  tree.UniformRows(true);
  tree.Redraw(false);
  tree.Nodes.Clear();
  root_ = tree.Nodes.Add("0", root_text, root_tag);
  root_.Font(false, font_size);
  root_.ForeColor(root_colour);
  root_.Image("root");
}

tree_filling::~tree_filling() {
  tree_.TopNode(root_);
  tree_.Indentation(250);
  tree_.Redraw(true);
}

}  // namespace ta_vorlumine
