#include <map>
#include <utility>

#include "rules/text_limits.h"
#include "store/text.h"
#include "tool/rule_check.h"

namespace rule_store {
namespace {

using ta_vorlumine::longest_text;

/// What the lines of a condition have to fit.
struct tested_field {
  bool known = false;
  std::string attr;
};

using tested_fields = std::map<std::pair<key, key>, tested_field>;  // by definition and condition

/// The kind of line that serves a field; empty for a field that takes no conditions.
std::string kind_for(const std::string& attr) {
  if (attr == "T" || attr == "M") return "S";
  return attr == "D" || attr == "N" || attr == "B" ? attr : "";
}

tested_fields tested_by_conditions(const store_rows& rows) {
  std::map<std::pair<key, key>, std::string> field_ids;
  for (const rule_row& row : rows.rules) {
    if (row.use_type == "F") field_ids[{row.definition, row.no}] = row.field_id;
  }
  tested_fields tested;
  for (const rule_row& row : rows.rules) {
    if (!row.is_condition() || row.lines == no_key) continue;
    tested_field& field = tested[{row.definition, row.lines}];
    const auto id = field_ids.find({row.definition, row.parent});
    if (id == field_ids.end()) continue;
    const auto found = rows.fields.find(id->second);
    if (found != rows.fields.end()) field = {.known = true, .attr = found->second.attr};
  }
  return tested;
}

/// Holds one line against its shape.
class line_check {
 public:
  line_check(const line_row& line, fault_list& faults) : line_(line), faults_(faults) {}

  void check_owner(const tested_fields& tested) {
    const auto owner = tested.find({line_.definition, line_.condition});
    if (owner == tested.end()) {
      add("no condition points to it");
    } else if (owner->second.known && line_.use_type != kind_for(owner->second.attr)) {
      add("\"" + line_.use_type + "\" for a field with the attr \"" + owner->second.attr + "\"");
    }
  }

  void check_content() {
    if (line_.use_type == "S") {
      check_text();
    } else if (line_.use_type == "D") {
      check_range("d", line_.date_from, line_.date_to);
    } else if (line_.use_type == "N") {
      check_range("n", line_.number_from, line_.number_to);
    } else if (line_.use_type != "B") {
      add("unknown use_type \"" + line_.use_type + "\"");
    }
  }

 private:
  void add(const std::string& fault) {
    faults_.add("replace_cond", {line_.definition, line_.condition, line_.sno}, fault);
  }

  void check_text() {
    check_method("s_method", line_.text, 3);
    const std::size_t length = ADODB::character_count(line_.text.value.text());
    if (length > longest_text) add("an s_val of " + std::to_string(length) + " characters");
  }

  void check_range(const std::string& type, const bound& from, const bound& to) {
    if (from.value.is_null() && to.value.is_null()) add("neither a lower nor an upper bound");
    if (!from.value.is_null()) check_method(type + "_f_method", from, 2);
    if (!to.value.is_null()) check_method(type + "_t_method", to, 2);
  }

  void check_method(const std::string& column, const bound& end, int highest) {
    const std::string method = end.method.text();
    for (int known = 1; known <= highest; ++known) {
      if (method == std::to_string(known)) return;
    }
    add("unknown " + column + " \"" + method + "\"");
  }

  const line_row& line_;
  fault_list& faults_;
};

}  // namespace

void check_lines(const store_rows& rows, fault_list& faults) {
  const tested_fields tested = tested_by_conditions(rows);
  for (const line_row& line : rows.lines) {
    line_check check(line, faults);
    check.check_owner(tested);
    check.check_content();
  }
}

}  // namespace rule_store
