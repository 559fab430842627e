#include "tool/store_print.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "tool/print_text.h"

namespace rule_store {
namespace {

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
    print_titles();
    print_left_out("replace", rows_.titles.size() - titles_);
    print_left_out("replace_m", rows_.rules.size() - rules_.size());
    print_left_out("replace_cond", rows_.lines.size() - lines_.size());
  }

 private:
  /// The rows that are to be printed yet, the next one last, each with its level. Trees may be too
  /// deep for a routine that calls itself.
  template <class Row>
  using waiting_rows = std::vector<std::pair<const Row*, int>>;

  void print_line(int level, const std::string& text, std::initializer_list<key> keys = {}) {
    for (int i = 0; i < level; ++i) output_ << "  ";
    output_ << text;
    if (keys_ == key_display::shown) {
      for (const key key : keys) output_ << " #" << key;
    }
    output_ << '\n';
  }

  void print_left_out(const std::string& table, std::size_t count) {
    if (count > 0) print_line(0, table + " rows outside the trees: " + std::to_string(count));
  }

  void print_titles() {
    waiting_rows<title_row> waiting;
    add_content(0, 0, waiting);
    while (!waiting.empty()) {
      const auto [row, level] = waiting.back();
      waiting.pop_back();
      print_title(*row, level);
      add_content(row->no, level + 1, waiting);
    }
  }

  void add_content(key folder, int level, waiting_rows<title_row>& waiting) {
    // Printed once: where numbers aren't unique, or 0, a folder may lie in itself.
    const auto content = by_folder_.extract(folder);
    if (content.empty()) return;
    const auto& rows = content.mapped();
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) waiting.emplace_back(*row, level);
  }

  void print_title(const title_row& row, int level) {
    ++titles_;
    print_line(level, title_text(row), {row.no});
    // An empty remark is stored as a blank.
    if (!row.comment.empty() && row.comment != " ") {
      print_line(level + 1, "remark " + quoted(row.comment));
    }
    if (row.kind == "C") print_rules(row.no, level + 1);
  }

  void print_rules(key definition, int level) {
    waiting_rows<rule_row> waiting;
    add_children(definition, 0, level, waiting);
    while (!waiting.empty()) {
      const auto [row, row_level] = waiting.back();
      waiting.pop_back();
      if (!rules_.insert(row).second) continue;
      print_rule(*row, row_level);
      add_children(definition, row->no, row_level + 1, waiting);
    }
  }

  void add_children(key definition, key parent, int level, waiting_rows<rule_row>& waiting) {
    const auto rows = rows_.children(definition, parent);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) waiting.emplace_back(&*row, level);
  }

  void print_rule(const rule_row& row, int level) {
    print_line(level, rule_text(row, rows_), {row.no});
    if (row.is_condition()) print_lines(row, level + 1);
    if (row.is_value()) print_line(level + 1, content_text(row, rows_));
  }

  void print_lines(const rule_row& row, int level) {
    for (const line_row& line : rows_.lines_of(row.definition, row.lines)) {
      lines_.insert(&line);
      print_line(level, line_text(line), {line.condition, line.sno});
    }
  }

  const store_rows& rows_;
  key_display keys_;
  std::ostream& output_;
  std::map<key, std::vector<const title_row*>> by_folder_;
  // What has been printed of each table. Two conditions may wrongly share their lines, and two
  // definitions their rules.
  std::size_t titles_ = 0;
  std::set<const rule_row*> rules_;
  std::set<const line_row*> lines_;
};

}  // namespace

void print_store(const store_rows& rows, key_display keys, std::ostream& output) {
  printer(rows, keys, output).print();
}

}  // namespace rule_store
