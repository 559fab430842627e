#include "conditions/condition_dialog.h"

#include <algorithm>

#include "rules/shared_state.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

constexpr int first_value_column = 5;

}  // namespace

condition_dialog::condition_dialog(std::string name, condition_lines kind)
    : window(std::move(name), "置換条件の設定", 6825, 3585),
      Label1(window, "Label1", {}, nullptr, platform::Label::lines::one),
      fg(window, "fg", "比較値の一覧"),
      Command3(window, "Command3", "削除"),
      Command1(window, "Command1", "OK"),
      Command2(window, "Command2", "ｷｬﾝｾﾙ"),
      kind_(std::move(kind)) {
  window.body = platform::column(
      {Label1, fg, platform::row({Command3, platform::stretch(), Command1, Command2})});
  window.on_load = [this] { transaction_.begin(); };
  window.on_unload = [this] { transaction_.end(); };
  fg.on_row_check = [this] { row_check(); };
  fg.on_validate_edit = [this](int, int col, bool& cancel) {
    if (kind_.validate) kind_.validate(fg, col, cancel);
  };
  Command1.on_click = [this] { ok(); };
  Command2.on_click = [this] { window.unload(); };
  Command3.on_click = [this] { delete_line(); };
}

void condition_dialog::load_lines() {
  auto& state = shared();
  new_row_.reset();
  may_delete_branch_ = false;
  known_lines_ = lines_in_store();
  fg.DataSource(known_lines_);
  fg.FormatString(kind_.format);
  fg.Cols(first_value_column + static_cast<int>(kind_.widths.size()));
  fg.Editable(2);
  state.cond_mode = fg.Rows() > 1;
  if (kind_.adjust) kind_.adjust(fg);
  add_trailing_row(std::to_string(state.f_replace_cond_no), state.sno_current);
  for (std::size_t i = 0; i < kind_.lists.size(); ++i) {
    if (!kind_.lists[i].empty()) {
      fg.ColComboList(first_value_column + static_cast<int>(i), kind_.lists[i]);
    }
  }
  for (int hidden = 0; hidden < first_value_column; ++hidden) fg.ColHidden(hidden, true);
  set_widths();
}

void condition_dialog::set_widths() {
  for (std::size_t i = 0; i < kind_.widths.size(); ++i) {
    fg.ColWidth(first_value_column + static_cast<int>(i), kind_.widths[i]);
  }
}

line_cells condition_dialog::cells(int row) {
  line_cells found;
  const int columns = first_value_column + static_cast<int>(kind_.widths.size());
  for (int col = 0; col < columns; ++col) found.push_back(fg.TextMatrix(row, col));
  return found;
}

ADODB::Recordset condition_dialog::lines_in_store() {
  auto& state = shared();
  return state.conn.Execute(sql(kind_.select, {state.f_replace_no, state.f_replace_cond_no}));
}

// While the connection is lost the grid alone has to do, so that typing goes on: OK writes all
// lines anew, and tells if it can't.
std::int64_t condition_dialog::next_number() {
  std::optional<std::int64_t> highest;
  transaction_.look([&] {
    ADODB::Recordset found = shared().conn.Execute(
        sql("select max(sno) from replace_cond where replace_cond_no=<f_replace_cond_no> "
            "and replace_no=<f_replace_no>",
            {shared().f_replace_cond_no, shared().f_replace_no}));
    const bool none = found.eof() || found.Fields().Item(0).Value().is_null();
    highest = none ? 0 : found.Fields().Item(0).Value().number();
  });
  return (highest ? *highest : highest_number_in_grid()) + 1;
}

std::int64_t condition_dialog::highest_number_in_grid() {
  std::int64_t highest = 0;
  for (int row = 1; row < fg.Rows(); ++row)
    highest = std::max<std::int64_t>(highest, std::stoll("0" + fg.TextMatrix(row, 3)));
  return highest;
}

void condition_dialog::add_trailing_row(const std::string& cond_no, std::int64_t sno) {
  std::string row = "\t" + std::to_string(shared().f_replace_no) + "\t" + cond_no + "\t" +
                    std::to_string(sno) + "\t" + kind_.use_type;
  row.append(kind_.widths.size(), '\t');
  fg.AddItem(row);
}

// Keeps a blank row at the end of the grid and sweeps out rows that were emptied.
void condition_dialog::row_check() {
  std::int64_t next = next_number();
  const int row = fg.Row();
  const int last = fg.Rows() - 1;
  if (row == -1) {
    if (last < 1 || fg.TextMatrix(1, 1).empty()) {
      add_trailing_row(std::to_string(shared().f_replace_cond_no), next);
    }
    return;
  }
  const line_cells current = cells(row);
  if (kind_.is_emptied(current)) {
    if (row != last) fg.RemoveItem(row);
  } else if (row == last) {
    const std::int64_t sno = std::stoll(current[3]);
    add_trailing_row(current[2], sno >= next ? sno + 1 : next);
  }
  set_widths();
}

void condition_dialog::delete_line() {
  const int rows = fg.Rows();
  // If the edit has emptied its row, that was the row to delete, and the row check has removed it.
  if (!fg.commit_edit() || fg.Rows() < rows) return set_widths();
  if (const int row = fg.Row(); row != -1) {
    delete_stored_line(cells(row));
    fg.RemoveItem(row);
  }
  set_widths();
}

// No line of a new condition is stored yet, and its number may by now be another program's.
void condition_dialog::delete_stored_line(const line_cells& line) {
  if (shared().f_cond_value == 0) return;
  transaction_.run([&] {
    shared().conn.Execute(
        sql("delete from replace_cond where replace_cond_no=<cell 2> and replace_no=<cell 1> "
            "and sno=<cell 3>",
            {line[2], line[1], line[3]}));
  });
}

}  // namespace ta_vorlumine
