#include "tool/print_text.h"

#include <array>
#include <map>

namespace rule_store {
namespace {

using words = std::array<const char*, 4>;  // by method; a method outside the words shows its code

constexpr words text_words{nullptr, "contains", "begins with", "is"};
constexpr words from_words{nullptr, "from", "after", nullptr};
constexpr words to_words{nullptr, "to", "before", nullptr};

std::string comparison(const char* end, const bound& with, const words& known) {
  const std::string code = with.method.text();
  const bool has_word =
      code.size() == 1 && code[0] >= '1' && code[0] <= '3' && known[code[0] - '0'];
  const std::string how = has_word ? known[code[0] - '0'] : end + (" method " + quoted(code));
  return " " + how + " " + quoted(with.value.text());
}

std::string range(const bound& from, const bound& to) {
  return (from.has_value() ? comparison("lower", from, from_words) : "") +
         (to.has_value() ? comparison("upper", to, to_words) : "");
}

std::string field_name(const std::string& id, const store_rows& rows) {
  const auto field = rows.fields.find(id);
  return field == rows.fields.end() ? "unknown " + quoted(id) : quoted(field->second.name);
}

}  // namespace

std::string quoted(std::string_view text) {
  constexpr std::string_view special = "\n\r\t\"\\";
  constexpr std::string_view escaped = "nrt\"\\";
  std::string result = "\"";
  for (const char letter : text) {
    const std::size_t place = special.find(letter);
    if (place == std::string_view::npos) {
      result += letter;
    } else {
      result += {'\\', escaped[place]};
    }
  }
  return result + '"';
}

std::string title_text(const title_row& row) {
  const std::string kind = row.kind == "F"   ? "folder "
                           : row.kind == "C" ? "definition "
                                             : "kind " + quoted(row.kind) + " ";
  return kind + (row.title.is_null() ? "null" : quoted(row.title.text()));
}

std::string rule_text(const rule_row& row, const store_rows& rows) {
  if (row.is_field()) return "field " + field_name(row.field_id, rows);
  if (row.is_value()) return "value " + quoted(row.title);
  if (row.use_type != "C") return "use_type " + quoted(row.use_type);
  return row.is_otherwise() ? "otherwise" : "condition";
}

std::string content_text(const rule_row& row, const store_rows& rows) {
  static const std::map<std::string, std::string> types = {
      {"S", "text "}, {"T", "text file "}, {"I", "image file "}, {"M", "multimedia file "}};
  if (row.replace_type == "F") return "field " + field_name(row.content, rows);
  const auto type = types.find(row.replace_type);
  return type == types.end() ? "replace_type " + quoted(row.replace_type)
                             : type->second + quoted(row.content);
}

std::string line_text(const line_row& raw_line) {
  const line_row line = raw_line.without_fillers();
  if (line.use_type == "S") return "text" + comparison("whole", line.text, text_words);
  if (line.use_type == "D") return "date" + range(line.date_from, line.date_to);
  if (line.use_type == "N") return "number" + range(line.number_from, line.number_to);
  if (line.use_type != "B") return "line of type " + quoted(line.use_type);
  if (line.answer.is_null()) return "unanswered";
  if (line.answer == ADODB::Value(true)) return "yes";
  return line.answer == ADODB::Value(false) ? "no" : "answer " + quoted(line.answer.text());
}

}  // namespace rule_store
