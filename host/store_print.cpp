#include "host/store_print.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <tuple>

namespace rule_store {
namespace {

/// The text in quotes, on one line.
std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char letter : text) {
    switch (letter) {
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\t':
        result += "\\t";
        break;
      case '"':
        result += "\\\"";
        break;
      case '\\':
        result += "\\\\";
        break;
      default:
        result += letter;
    }
  }
  return result + '"';
}

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
  return (from.value.is_null() ? "" : comparison("lower", from, from_words)) +
         (to.value.is_null() ? "" : comparison("upper", to, to_words));
}

std::string comparison(const line_row& line) {
  if (line.use_type == "S") return "text" + comparison("whole", line.text, text_words);
  if (line.use_type == "D") return "date" + range(line.date_from, line.date_to);
  if (line.use_type == "N") return "number" + range(line.number_from, line.number_to);
  if (line.use_type != "B") return "line of type " + quoted(line.use_type);
  return line.answer.is_null() ? "unanswered" : line.answer.truth() ? "yes" : "no";
}

class printer {
 public:
  printer(const store_rows& rows, key_display keys, std::ostream& output)
      : rows_(rows), keys_(keys), output_(output) {
    for (const title_row& row : rows.titles) by_folder_[row.parent].push_back(&row);
    for (auto& [folder, content] : by_folder_) {
      std::ranges::sort(content, {}, [](const title_row* row) {
        return std::make_tuple(row->title.text(), row->kind, row->no);
      });
    }
  }

  void print() {
    print_folder(0);
    print_left_out("replace", rows_.titles.size() - titles_);
    print_left_out("replace_m", rows_.rules.size() - rules_);
    print_left_out("replace_cond", rows_.lines.size() - lines_.size());
  }

 private:
  void print_line(const std::string& text, std::initializer_list<key> keys = {}) {
    for (int level = 0; level < level_; ++level) output_ << "  ";
    output_ << text;
    if (keys_ == key_display::shown) {
      for (const key key : keys) output_ << " #" << key;
    }
    output_ << '\n';
  }

  void print_left_out(const char* table, std::size_t count) {
    if (count > 0)
      print_line(std::string(table) + " rows outside the trees: " + std::to_string(count));
  }

  void print_folder(key folder) {
    const auto content = by_folder_.find(folder);
    if (content == by_folder_.end()) return;
    for (const title_row* row : content->second) print_title(*row);
  }

  void print_title(const title_row& row) {
    ++titles_;
    const std::string kind = row.kind == "F"   ? "folder "
                             : row.kind == "C" ? "definition "
                                               : "kind " + quoted(row.kind) + " ";
    print_line(kind + (row.title.is_null() ? "null" : quoted(row.title.text())), {row.no});
    ++level_;
    // An empty remark is stored as a blank.
    if (!row.comment.empty() && row.comment != " ") print_line("remark " + quoted(row.comment));
    if (row.kind == "C") print_children(row.no, 0);
    print_folder(row.no);
    --level_;
  }

  void print_children(key definition, key parent) {
    for (const rule_row& row : rows_.children(definition, parent)) print_rule(row);
  }

  void print_rule(const rule_row& row) {
    ++rules_;
    print_line(heading(row), {row.no});
    ++level_;
    if (row.is_condition()) print_lines(row);
    if (row.use_type == "R") print_line(content(row));
    print_children(row.definition, row.no);
    --level_;
  }

  void print_lines(const rule_row& row) {
    for (const line_row& line : rows_.lines_of(row.definition, row.lines)) {
      lines_.insert(&line);
      print_line(comparison(line), {line.condition, line.sno});
    }
  }

  std::string heading(const rule_row& row) const {
    if (row.use_type == "F") return "field " + field_name(row.field_id);
    if (row.use_type == "C") return row.is_otherwise() ? "otherwise" : "condition";
    if (row.use_type == "R") return "value " + quoted(row.title);
    return "use_type " + quoted(row.use_type);
  }

  std::string content(const rule_row& row) const {
    static const std::map<std::string, std::string> types = {
        {"S", "text "}, {"T", "text file "}, {"I", "image file "}, {"M", "multimedia file "}};
    if (row.replace_type == "F") return "field " + field_name(row.content);
    const auto type = types.find(row.replace_type);
    return type == types.end() ? "replace_type " + quoted(row.replace_type)
                               : type->second + quoted(row.content);
  }

  std::string field_name(const std::string& id) const {
    const auto field = rows_.fields.find(id);
    return field == rows_.fields.end() ? "unknown " + quoted(id) : quoted(field->second.name);
  }

  const store_rows& rows_;
  key_display keys_;
  std::ostream& output_;
  std::map<key, std::vector<const title_row*>> by_folder_;
  int level_ = 0;
  // What has been printed of each table. Two conditions may wrongly share their lines.
  std::size_t titles_ = 0;
  std::size_t rules_ = 0;
  std::set<const line_row*> lines_;
};

}  // namespace

void print_store(const store_rows& rows, key_display keys, std::ostream& output) {
  printer(rows, keys, output).print();
}

}  // namespace rule_store
