#include "tool/rule_check.h"

#include <algorithm>

namespace rule_store {
namespace {

bool is_one_of(std::string_view code, std::string_view codes) {
  return code.size() == 1 && codes.find(code) != std::string_view::npos;
}

/// Holds the rule tree of one definition against its shape.
class tree_check {
 public:
  tree_check(const title_row& definition, const store_rows& rows, fault_list& faults)
      : definition_(definition), rows_(rows), faults_(faults) {
    for (const rule_row& row : rows.rules_of(definition.no)) by_no_[row.no] = &row;
  }

  void run() {
    check_top();
    std::map<key, key> parents;
    for (const auto& [no, row] : by_no_) {
      parents[no] = row->parent;
      check_parent(*row);
      if (row->use_type == "F") {
        check_field(*row);
      } else if (row->use_type == "C") {
        check_condition(*row);
      } else if (row->use_type == "R") {
        check_value(*row);
      } else {
        add(*row, "unknown use_type \"" + row->use_type + "\"");
      }
    }
    for (const auto& [no, loop] : loops_in(parents)) {
      add(*by_no_.at(no), "lies in a loop: " + loop);
    }
  }

 private:
  void add(const rule_row& row, const std::string& fault) {
    faults_.add("replace_m", {row.definition, row.no}, fault);
  }

  void check_top() {
    const auto top = rows_.children(definition_.no, 0);
    if (top.size() > 1) {
      faults_.add("replace", {definition_.no}, std::to_string(top.size()) + " top rows");
    }
    for (const rule_row& row : top) {
      if (row.use_type == "F" && row.no != definition_.top_rule) {
        add(row, "the top field, for which " + text_of(definition_.top_rule) + " is reserved");
      }
    }
  }

  void check_parent(const rule_row& row) {
    if (row.parent == 0) {
      if (row.use_type == "C") add(row, "a condition under the root");
      return;
    }
    const auto parent = by_no_.find(row.parent);
    if (parent == by_no_.end()) {
      add(row, "its parent " + text_of(row.parent) + " does not exist");
      return;
    }
    const std::string& above = parent->second->use_type;
    if (is_one_of(row.use_type, "FCR") && above != (row.use_type == "C" ? "F" : "C")) {
      add(row,
          "\"" + row.use_type + "\" under " + text_of(row.parent) + ", which is \"" + above + "\"");
    }
    if (row.no < row.parent) add(row, "a lower number than its parent " + text_of(row.parent));
  }

  void check_field_id(const rule_row& row, const std::string& id) {
    if (!rows_.fields.contains(id)) add(row, "there is no field \"" + id + "\"");
  }

  void check_field(const rule_row& row) {
    check_field_id(row, row.field_id);
    const auto below = rows_.children(row.definition, row.no);
    const auto conditions = std::ranges::count_if(below, &rule_row::is_condition);
    const auto otherwises = std::ranges::count_if(below, &rule_row::is_otherwise);
    if (otherwises != (conditions > 0 ? 1 : 0)) {
      add(row, std::to_string(conditions) + " conditions and " + std::to_string(otherwises) +
                   " otherwise rows");
    }
  }

  void check_condition(const rule_row& row) {
    if (!is_one_of(row.cond_type, "01")) {
      add(row, "unknown replace_cond_type \"" + row.cond_type + "\"");
    }
    const auto below = rows_.children(row.definition, row.no);
    if (below.size() > 1) add(row, std::to_string(below.size()) + " children");
    if (row.is_condition()) check_has_lines(row);
  }

  void check_has_lines(const rule_row& row) {
    if (rows_.lines_of(row.definition, row.lines).empty()) {
      add(row, "a condition without lines");
    }
    const auto [owner, is_first] = condition_of_.try_emplace(row.lines, row.no);
    if (!is_first && row.lines != no_key) {
      add(row, "shares its lines with condition " + text_of(owner->second));
    }
  }

  void check_value(const rule_row& row) {
    if (!is_one_of(row.replace_type, "STIMF")) {
      add(row, "unknown replace_type \"" + row.replace_type + "\"");
    }
    if (row.replace_type == "F") check_field_id(row, row.content);
  }

  const title_row& definition_;
  const store_rows& rows_;
  fault_list& faults_;
  std::map<key, const rule_row*> by_no_;
  std::map<key, key> condition_of_;  ///< by the number of its lines
};

}  // namespace

void check_rules(const store_rows& rows, fault_list& faults) {
  for (const title_row& title : rows.titles) {
    if (title.kind == "C") tree_check(title, rows, faults).run();
  }
  for (const rule_row& row : rows.rules) {
    const title_row* definition = rows.title(row.definition);
    if (!definition || definition->kind != "C") {
      faults.add("replace_m", {row.definition, row.no}, "its definition does not exist");
    }
  }
}

}  // namespace rule_store
