#include <algorithm>
#include <set>

#include "rules/text_limits.h"
#include "store/text.h"
#include "tool/print_text.h"
#include "tool/table_checks.h"

namespace rule_store {
namespace {

using ta_vorlumine::longest_text;

std::set<std::string> field_names(const store_rows& rows) {
  std::set<std::string> names;
  for (const auto& [id, field] : rows.fields) names.insert(field.name);
  return names;
}

/// The last rule number that was drawn. A counter may lag behind.
key last_rule_number(const store_rows& rows) {
  key last = highest_numbers(rows).replace_m;
  for (const counter_row& counters : rows.counters) last = std::max(last, counters.replace_m);
  return last;
}

/// Holds the folders and the heads of the definitions against their shape.
class title_check {
 public:
  title_check(const store_rows& rows, row_report& faults)
      : rows_(rows),
        faults_(faults),
        field_names_(field_names(rows)),
        last_rule_number_(last_rule_number(rows)) {}

  void check(const title_row& row) {
    check_number(row);
    if (row.kind == "F") {
      check_folder(row);
    } else if (row.kind == "C") {
      check_definition(row);
    } else {
      add(row, "unknown kind " + quoted(row.kind));
    }
    const std::size_t length = ADODB::character_count(row.title.text());
    if (length > longest_text) add(row, "a title of " + std::to_string(length) + " characters");
    check_parent(row);
  }

 private:
  void add(const title_row& row, const std::string& fault) {
    faults_.add("replace", {row.no}, fault);
  }

  void check_number(const title_row& row) {
    if (!is_key(row.no)) add(row, "its number lies outside 1 to 32767");
    // Rows with the same number stand side by side.
    if (&row != rows_.titles.data() && (&row - 1)->no == row.no)
      add(row, "its number stands twice");
  }

  void check_folder(const title_row& row) {
    if (row.top_rule != 0 && row.top_rule != no_key) {
      add(row, "a folder with the rule number " + text_of(row.top_rule));
    }
    if (!row.comment.empty()) add(row, "a folder with the remark " + quoted(row.comment));
  }

  void check_definition(const title_row& row) {
    if (field_names_.contains(row.title.text())) {
      add(row, "has the name of a field as its title, " + quoted(row.title.text()));
    }
    check_reserved_number(row);
  }

  // A definition reserves the number behind the counter. If its top field has another one, that is
  // told of the field.
  void check_reserved_number(const title_row& row) {
    const auto top = rows_.children(row.no, 0);
    if (std::ranges::any_of(top, &rule_row::is_field)) return;
    if (row.top_rule <= 0) {
      add(row, "reserves no number for its top field");
    } else if (row.top_rule > last_rule_number_ + 1) {
      add(row, "reserves the number " + text_of(row.top_rule) +
                   " for its top field, far ahead of " + text_of(last_rule_number_) +
                   ", the last one drawn");
    }
  }

  void check_parent(const title_row& row) {
    if (row.parent == 0) return;
    const title_row* parent = rows_.title(row.parent);
    if (!parent) {
      add(row, "its folder " + text_of(row.parent) + " does not exist");
    } else if (parent->kind != "F") {
      add(row, "lies under " + text_of(row.parent) + ", which is no folder");
    }
  }

  const store_rows& rows_;
  row_report& faults_;
  std::set<std::string> field_names_;
  key last_rule_number_;
};

}  // namespace

void check_titles(const store_rows& rows, row_report& faults) {
  title_check check(rows, faults);
  std::map<key, key> parents;
  for (const title_row& row : rows.titles) {
    parents[row.no] = row.parent;
    check.check(row);
  }
  for (const auto& [no, loop] : loops_in(parents)) {
    faults.add("replace", {no}, "lies in a loop: " + loop);
  }
}

}  // namespace rule_store
