#include "conditions/r_number_cond.h"

#include "conditions/full_width_input.h"
#include "conditions/range_lines.h"
#include "platform/messages.h"
#include "store/text_values.h"

namespace ta_vorlumine {
namespace {

const range_statements statements{
    .select =
        "select replace_no,replace_cond_no,sno,use_type,n_f_val,n_f_method,n_t_val,"
        "n_t_method from replace_cond where replace_no=<f_replace_no> and "
        "replace_cond_no=<f_replace_cond_no> and use_type='N'",
    .insert_both =
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,n_f_val,n_f_method,"
        "n_t_val,n_t_method) values(<cell 1>,<cell 2>,<cell 3>,'<cell 4>','<cell 5>','<cell 6>',"
        "'<cell 7>','<cell 8>')",
    .insert_upper =
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,n_t_val,n_t_method) "
        "values(<cell 1>,<cell 2>,<cell 3>,'<cell 4>','<cell 7>','<cell 8>')",
    .insert_lower =
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,n_f_val,n_f_method) "
        "values(<cell 1>,<cell 2>,<cell 3>,'<cell 4>','<cell 5>','<cell 6>')",
    .bound = ADODB::argument::typed_number};

/// Whether it is one that an engine would store as another number, or not at all.
bool has_too_many_digits(const std::string& text) {
  return ADODB::read_number(text) && !ADODB::is_kept_exactly(text);
}

// A number that one engine would change is refused on each. What is no number can't be compared;
// the row stays for the user to look at.
bool check_number_row(const line_cells& row, int number) {
  const std::string place = "第" + std::to_string(number) + "行目：";
  if (has_too_many_digits(row[from_value]) || has_too_many_digits(row[to_value])) {
    platform::message(place + "数字の桁数が多すぎるため、登録できません");
    return false;
  }
  if (row[from_value].empty() || row[to_value].empty()) return true;
  const auto lower = ADODB::read_number(row[from_value]);
  const auto upper = ADODB::read_number(row[to_value]);
  if (!lower || !upper) return false;
  if (*lower <= *upper) return true;
  platform::message(place + "数字の指定が正しくありません");
  return false;
}

// A copied definition holds a bound of 0 without a method where its source has no bound.
void empty_absent_bound(VSFlexGrid& fg, int row, std::size_t value, std::size_t method) {
  const int col = static_cast<int>(value);
  const bool absent = fg.TextMatrix(row, static_cast<int>(method)).empty() &&
                      ADODB::read_number(fg.TextMatrix(row, col)) == 0.0;
  if (absent) fg.TextMatrix(row, col, "");
}

void empty_absent_bounds(VSFlexGrid& fg) {
  for (int row = 1; row < fg.Rows(); ++row) {
    empty_absent_bound(fg, row, from_value, from_method);
    empty_absent_bound(fg, row, to_value, to_method);
  }
}

condition_lines description() {
  condition_lines lines = range_lines("N", statements);
  lines.adjust = empty_absent_bounds;
  lines.test = check_number_row;
  lines.validate = [](VSFlexGrid& fg, int col, bool&) {
    if (col == from_value || col == to_value) fg.EditText(plain_number(fg.EditText()));
  };
  return lines;
}

}  // namespace

r_number_cond::r_number_cond() : dialog("r_number_cond", description()) {}

}  // namespace ta_vorlumine
