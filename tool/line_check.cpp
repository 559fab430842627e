#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "rules/text_limits.h"
#include "store/text.h"
#include "store/text_values.h"
#include "tool/print_text.h"
#include "tool/table_checks.h"

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

/// Where a bound lies, to be compared with others of its kind; nothing if its text is out of form.
std::optional<double> number_of(const bound& end) {
  return ADODB::read_number(end.value.text());
}

std::optional<double> day_of(const bound& end) {
  const auto day = ADODB::read_date(end.value.text());
  if (!day) return {};
  return static_cast<double>(day->time_since_epoch().count());
}

/// A line whose bounds are dates or numbers.
struct range {
  std::string column;  ///< the letter with which the names of its columns begin
  std::string kind;
  const bound& from;
  const bound& to;
  std::optional<double> (*place_of)(const bound& end);
  double step;  ///< by how much a bound that is left out moves its end; 0 if it may stay
};

/// Holds one line against its shape.
class line_check {
 public:
  line_check(const line_row& line, row_report& faults)
      : line_(line.without_fillers()), faults_(faults) {}

  void check_owner(const tested_fields& tested) {
    const auto owner = tested.find({line_.definition, line_.condition});
    if (owner == tested.end()) {
      add("no condition points to it");
    } else if (owner->second.known && line_.use_type != kind_for(owner->second.attr)) {
      add(quoted(line_.use_type) + " for a field with the attr " + quoted(owner->second.attr));
    }
  }

  void check_numbers() {
    if (!is_key(line_.condition) || !is_key(line_.sno)) {
      add("its number lies outside 1 to 32767");
    }
  }

  void check_content() {
    if (line_.use_type == "S") {
      check_text();
    } else if (line_.use_type == "D") {
      check_range({"d", "date", line_.date_from, line_.date_to, day_of, 1});
    } else if (line_.use_type == "N") {
      // The dialog, too, lets equal numbers pass that are both left out.
      check_range({"n", "number", line_.number_from, line_.number_to, number_of, 0});
    } else if (line_.use_type == "B") {
      check_answer();
    } else {
      return add("unknown use_type " + quoted(line_.use_type));
    }
    check_other_columns();
  }

 private:
  void add(const std::string& fault) {
    faults_.add("replace_cond", {line_.definition, line_.condition, line_.sno}, fault);
  }

  void check_text() {
    if (!line_.text.has_value()) add("a text line without a text");
    check_method("s_method", line_.text, 3);
    const std::size_t length = ADODB::character_count(line_.text.value.text());
    if (length > longest_text) add("an s_val of " + std::to_string(length) + " characters");
  }

  void check_range(const range& range) {
    if (!range.from.has_value() && !range.to.has_value()) {
      return add("neither a lower nor an upper bound");
    }
    check_end(range, "_f", range.from);
    check_end(range, "_t", range.to);
    const auto from = range.place_of(range.from);
    const auto to = range.place_of(range.to);
    if (!from || !to) return;
    const auto left_out = [](const bound& end) { return end.method.text() == "2" ? 1 : 0; };
    const int steps = left_out(range.from) + left_out(range.to);
    if (*from + range.step * steps > *to) {
      add("nothing lies between its bounds " + quoted(range.from.value.text()) + " and " +
          quoted(range.to.value.text()));
    }
  }

  void check_end(const range& range, const std::string& end, const bound& bound) {
    const std::string column = range.column + end;
    if (bound.has_value()) {
      check_method(column + "_method", bound, 2);
      if (!range.place_of(bound)) {
        add(column + "_val " + quoted(bound.value.text()) + " is no " + range.kind);
      }
    } else if (bound.has_method()) {
      add("a " + column + "_method without a " + column + "_val");
    }
  }

  void check_answer() {
    if (line_.answer.is_null()) return add("a yes/no line without an answer");
    if (line_.answer != ADODB::Value(true) && line_.answer != ADODB::Value(false)) {
      add("b_val " + quoted(line_.answer.text()) + " is neither yes nor no");
    }
  }

  void check_method(const std::string& column, const bound& end, int highest) {
    const std::string method = end.method.text();
    for (int known = 1; known <= highest; ++known) {
      if (method == std::to_string(known)) return;
    }
    add("unknown " + column + " " + quoted(method));
  }

  void check_other_columns() {
    const auto check = [&](const char* use_type, bool holds, const char* what) {
      if (holds && line_.use_type != use_type) {
        add("a line of the use_type " + quoted(line_.use_type) + " that also holds " + what);
      }
    };
    const auto is_there = [](const bound& end) { return end.has_value() || end.has_method(); };
    check("S", is_there(line_.text), "a text");
    check("D", is_there(line_.date_from) || is_there(line_.date_to), "a date");
    check("N", is_there(line_.number_from) || is_there(line_.number_to), "a number");
    check("B", !line_.answer.is_null(), "an answer");
  }

  line_row line_;
  row_report& faults_;
};

}  // namespace

void check_lines(const store_rows& rows, row_report& faults) {
  const tested_fields tested = tested_by_conditions(rows);
  const auto number = [](const line_row& line) {
    return std::make_tuple(line.definition, line.condition, line.sno);
  };
  for (const line_row& line : rows.lines) {
    // Lines with the same number stand side by side.
    if (&line != rows.lines.data() && number(*(&line - 1)) == number(line)) {
      faults.add("replace_cond", {line.definition, line.condition, line.sno},
                 "its number stands twice");
    }
    line_check check(line, faults);
    check.check_owner(tested);
    check.check_numbers();
    check.check_content();
  }
}

}  // namespace rule_store
