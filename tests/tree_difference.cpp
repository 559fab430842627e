#include "tree_difference.h"

#include <algorithm>
#include <array>

#include "browser/replace_form.h"
#include "editor/replace_create.h"

namespace harness {
namespace {

using platform::form;
using rule_store::store_rows;
using lines = std::vector<std::string>;

std::string line(std::size_t depth, const std::string& key, const std::string& text) {
  return std::string(2 * depth, ' ') + key + " " + text;
}

void add_shown(const ta_vorlumine::Node& node, std::size_t depth, bool in_order, lines& found) {
  found.push_back(line(depth, node.Key(), node.Text()));
  std::vector<ta_vorlumine::Node> children;
  for (auto child = node.Child(); !child.is_empty(); child = child.Next())
    children.push_back(child);
  if (!in_order)
    std::ranges::sort(children, {}, [](const auto& child) { return std::stoi(child.Key()); });
  for (const auto& child : children) add_shown(child, depth + 1, in_order, found);
}

lines shown(ta_vorlumine::SSTree& tree, bool in_order) {
  lines found;
  add_shown(tree.Nodes.Item("0"), 0, in_order, found);
  return found;
}

void add_titles(const store_rows& rows, rule_store::key parent, std::size_t depth, lines& wanted) {
  for (const auto& row : rows.titles) {
    if (row.parent != parent) continue;
    wanted.push_back(
        line(depth, std::to_string(row.no), row.title.is_null() ? "NULL" : row.title.text()));
    add_titles(rows, row.no, depth + 1, wanted);
  }
}

std::string end_text(const rule_store::bound& end, const std::array<const char*, 3>& words) {
  const std::string method = end.method.text();
  return end.value.text() + (method == "1" ? words[1] : method == "2" ? words[2] : "");
}

std::string line_text(const rule_store::line_row& line) {
  if (line.use_type == "S") {
    constexpr std::array words = {"（部分一致）", "（先頭一致）", "（完全一致）"};
    return line.text.value.text() + words.at(std::stoul(line.text.method.text()) - 1);
  }
  if (line.use_type == "B") {
    if (line.answer.is_null()) return {};
    return line.answer.truth() ? "はい" : "いいえ";
  }
  const bool date = line.use_type == "D";
  return end_text(date ? line.date_from : line.number_from, {"", "から", "から（含まない）"}) +
         end_text(date ? line.date_to : line.number_to, {"", "まで", "まで（含まない）"});
}

std::string rule_text(const store_rows& rows, const rule_store::rule_row& row) {
  if (row.use_type == "F") return rows.fields.at(row.field_id).name;
  if (row.use_type == "R") return row.title;
  if (row.is_otherwise()) return "以外";
  std::string text;
  for (const auto& line : rows.lines_of(row.definition, row.lines))
    text += (text.empty() ? "" : ";") + line_text(line);
  return text;
}

void add_rules(const store_rows& rows, rule_store::key parent, std::size_t depth, lines& wanted) {
  for (const auto& row : rows.children(form<ta_vorlumine::replaceForm>().f_replace_no, parent)) {
    wanted.push_back(line(depth, std::to_string(row.no), rule_text(rows, row)));
    add_rules(rows, row.no, depth + 1, wanted);
  }
}

std::string difference(const lines& shown, const lines& wanted) {
  if (shown == wanted) return {};
  std::string text = "the tree shows\n";
  for (const std::string& line : shown) text += "    " + line + "\n";
  text += "but the store holds\n";
  for (const std::string& line : wanted) text += "    " + line + "\n";
  return text;
}

}  // namespace

std::string title_tree_difference(const store_rows& rows, bool in_order) {
  lines wanted{line(0, "0", "条件設定")};
  add_titles(rows, 0, 1, wanted);
  return difference(shown(form<ta_vorlumine::replaceForm>().SSTree1, in_order), wanted);
}

std::string rule_tree_difference(const store_rows& rows) {
  lines wanted{line(0, "0", "置換条件")};
  add_rules(rows, 0, 1, wanted);
  return difference(shown(form<ta_vorlumine::replace_create>().SSTree1, true), wanted);
}

}  // namespace harness
