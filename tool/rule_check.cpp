#include <algorithm>

#include "tool/print_text.h"
#include "tool/table_checks.h"

namespace rule_store {
namespace {

bool is_one_of(std::string_view code, std::string_view codes) {
  return code.size() == 1 && codes.find(code) != std::string_view::npos;
}

/// Holds the rule tree of one definition against its shape.
class tree_check {
 public:
  tree_check(const title_row& definition, const store_rows& rows, row_report& faults)
      : definition_(definition), rows_(rows), faults_(faults) {
    for (const rule_row& row : rows.rules_of(definition.no)) {
      if (!by_no_.emplace(row.no, &row).second) add(row, "its number stands twice");
    }
  }

  void run() {
    check_top();
    std::map<key, key> parents;
    for (const auto& [no, row] : by_no_) {
      parents[no] = row->parent;
      check_row(*row);
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
      if (row.is_field() && row.no != definition_.top_rule) {
        add(row, "the top field, for which " + text_of(definition_.top_rule) + " is reserved");
      }
    }
  }

  void check_row(const rule_row& row) {
    if (!is_key(row.no)) add(row, "its number lies outside 1 to 32767");
    check_parent(row);
    if (row.lines != no_key && !row.is_condition()) {
      add(row,
          "has the condition number " + text_of(row.lines) + ", but is no condition with lines");
    }
    if (row.is_field()) {
      check_field(row);
    } else if (row.use_type == "C") {
      check_condition(row);
    } else if (row.is_value()) {
      check_value(row);
    } else {
      add(row, "unknown use_type " + quoted(row.use_type));
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
          quoted(row.use_type) + " under " + text_of(row.parent) + ", which is " + quoted(above));
    }
    if (row.no < row.parent) add(row, "a lower number than its parent " + text_of(row.parent));
  }

  /// Null if there is none, which is then told.
  const field_row* field_of(const rule_row& row, const std::string& id) {
    const auto field = rows_.fields.find(id);
    if (field != rows_.fields.end()) return &field->second;
    add(row, "there is no field " + quoted(id));
    return nullptr;
  }

  void check_field(const rule_row& row) {
    const field_row* field = field_of(row, row.field_id);
    const auto below = rows_.children(row.definition, row.no);
    const auto conditions = std::ranges::count_if(below, &rule_row::is_condition);
    const auto otherwises = std::ranges::count_if(below, &rule_row::is_otherwise);
    if (otherwises != (conditions > 0 ? 1 : 0)) {
      add(row, std::to_string(conditions) + " conditions and " + std::to_string(otherwises) +
                   " otherwise rows");
    }
    if (!field || field->attr != "B") return;
    if (conditions > 1)
      add(row, "a yes/no field with " + std::to_string(conditions) + " conditions");
    for (const rule_row& condition : below) {
      const std::size_t lines = rows_.lines_of(row.definition, condition.lines).size();
      if (lines > 1) add(condition, std::to_string(lines) + " lines for a yes/no field");
    }
  }

  void check_condition(const rule_row& row) {
    if (!is_one_of(row.cond_type, "01")) {
      add(row, "unknown replace_cond_type " + quoted(row.cond_type));
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
    if (row.title.empty()) add(row, "a value without a title");
    if (!is_one_of(row.replace_type, "STIMF")) {
      add(row, "unknown replace_type " + quoted(row.replace_type));
    } else if (row.replace_type == "F") {
      check_field_value(row);
    } else if (is_empty(row)) {
      add(row, "a value without content");
    }
  }

  // A change of the kind of a value leaves a blank in the columns of the others. As a text a blank
  // may be meant, but no file has such a name.
  static bool is_empty(const rule_row& row) {
    return row.content.empty() || (row.content == " " && row.replace_type != "S");
  }

  void check_field_value(const rule_row& row) {
    const field_row* field = field_of(row, row.content);
    if (field && field->name != row.title) {
      add(row, "its title " + quoted(row.title) + " is not " + quoted(field->name) +
                   ", the name of its field");
    }
  }

  const title_row& definition_;
  const store_rows& rows_;
  row_report& faults_;
  std::map<key, const rule_row*> by_no_;
  std::map<key, key> condition_of_;  ///< by the number of its lines
};

}  // namespace

void check_rules(const store_rows& rows, row_report& faults) {
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
