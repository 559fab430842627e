#include "editor/condition_text.h"

#include <array>
#include <charconv>

#include "platform/messages.h"
#include "rules/record_values.h"
#include "rules/shared_state.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using suffixes = std::array<const char*, 4>;  // by method; a method outside 1 to 3 has none

constexpr suffixes text_suffixes{nullptr, "（部分一致）", "（先頭一致）", "（完全一致）"};
constexpr suffixes from_suffixes{"", "から", "から（含まない）", ""};
constexpr suffixes to_suffixes{"", "まで", "まで（含まない）", ""};

bool is_otherwise(const ADODB::Recordset& condition) {
  return column(condition, "replace_cond_type").text() == "1";
}

const char* suffix(const suffixes& of, const ADODB::Value& method) {
  const std::string text = method.text();
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number < of.size() ? of[number] : of[0];
}

// A copied definition holds a number bound of 0 without a method where its source has no bound.
std::string bound(const ADODB::Recordset& line, const std::string& end, const suffixes& of) {
  if (end.starts_with('n') && column(line, end + "_method").is_null() &&
      column(line, end + "_val").text() == "0") {
    return {};
  }
  return column(line, end + "_val").text() + suffix(of, column(line, end + "_method"));
}

std::string range(const ADODB::Recordset& line, const std::string& type) {
  return bound(line, type + "_f", from_suffixes) + bound(line, type + "_t", to_suffixes) + ";";
}

// A text line whose method is unknown adds nothing at all; a range keeps its bare bounds.
std::string comparison(const ADODB::Recordset& line) {
  const char* how = suffix(text_suffixes, column(line, "s_method"));
  return how ? column(line, "s_val").text() + how + ";" : "";
}

void add_line(const ADODB::Recordset& line, std::string& text) {
  const std::string type = column(line, "use_type").text();
  if (type == "S") {
    text += comparison(line);
  } else if (type == "D") {
    text += range(line, "d");
  } else if (type == "N") {
    text += range(line, "n");
  } else if (type == "B") {
    const ADODB::Value answer = column(line, "b_val");
    if (!answer.is_null()) text = answer.truth() ? "はい" : "いいえ";
  } else {
    platform::message("Use_type:ERROR");
  }
}

}  // namespace

std::optional<ADODB::statement> select_of_lines(const ADODB::Recordset& condition) {
  if (is_otherwise(condition) || column(condition, "replace_cond_no").is_null()) return {};
  return sql(
      "select * from replace_cond where replace_cond_no=<replace_cond_no> "
      "and replace_no=<f_replace_no>",
      {column(condition, "replace_cond_no"), shared().f_replace_no});
}

std::string condition_text(const ADODB::Recordset& condition, ADODB::Recordset lines) {
  if (is_otherwise(condition)) return "以外";
  std::string text;
  for (; !lines.eof(); lines.MoveNext()) add_line(lines, text);
  if (text.ends_with(';')) text.pop_back();
  return text;
}

}  // namespace ta_vorlumine
