#include "conditions/r_date_cond.h"

#include "conditions/date_text.h"
#include "conditions/full_width_input.h"
#include "conditions/range_lines.h"
#include "platform/messages.h"
#include "store/text_values.h"

namespace ta_vorlumine {
namespace {

const range_statements statements{
    .select =
        "select replace_no,replace_cond_no,sno,use_type,d_f_val,d_f_method,d_t_val,"
        "d_t_method from replace_cond where replace_no=<f_replace_no> and "
        "replace_cond_no=<f_replace_cond_no> and use_type='D'",
    .insert_both =
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,d_f_val,d_f_method,"
        "d_t_val,d_t_method) values(<cell 1>,<cell 2>,<cell 3>,'<cell 4>','<cell 5>','<cell 6>',"
        "'<cell 7>','<cell 8>')",
    .insert_upper =
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,d_t_val,d_t_method) "
        "values(<cell 1>,<cell 2>,<cell 3>,'<cell 4>','<cell 7>','<cell 8>')",
    .insert_lower =
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,d_f_val,d_f_method) "
        "values(<cell 1>,<cell 2>,<cell 3>,'<cell 4>','<cell 5>','<cell 6>')",
    .bound = [](const std::string& date) { return ADODB::argument(date); }};

// An end that is left out of the range moves by a day before the ends are compared. What is no date
// can't be compared; the row stays for the user to look at.
bool check_date_row(const line_cells& row, int number) {
  if (row[from_value].empty() || row[to_value].empty()) return true;
  auto lower = ADODB::read_date(row[from_value]);
  auto upper = ADODB::read_date(row[to_value]);
  if (!lower || !upper) return false;
  if (row[from_method] == "2") *lower += std::chrono::days(1);
  if (row[to_method] == "2") *upper -= std::chrono::days(1);
  if (*lower <= *upper) return true;
  platform::message("第" + std::to_string(number) + "行目：日付の指定が正しくありません");
  return false;
}

}  // namespace

r_date_cond::r_date_cond() : dialog("r_date_cond", description()) {}

condition_lines r_date_cond::description() {
  condition_lines lines = range_lines("D", statements);
  lines.test = check_date_row;
  lines.validate = [this](VSFlexGrid& fg, int col, bool&) { validate(fg, col); };
  return lines;
}

// The edit ends in any case: a wrong form becomes today's date, a wrong day stays as it was typed.
void r_date_cond::validate(VSFlexGrid& fg, int col) const {
  if ((col != from_value && col != to_value) || fg.EditText().empty()) return;
  const platform::system_date system = system_date();
  std::string date = plain_date(fg.EditText(), system.separator);
  if (!has_date_form(date, system.separator)) {
    date = write_date(system.today, system.separator);
    platform::message("日付無効.(フォーマット:)" + date);
  }
  ADODB::read_date(date) ? fg.EditText(date) : platform::message("日付無効.範囲エラー！");
}

}  // namespace ta_vorlumine
