#include "tool/row_report.h"

namespace rule_store {
namespace {

std::string loop_from(key start, const std::map<key, key>& parents) {
  std::string text = text_of(start);
  key row = start;
  do {
    row = parents.at(row);
    text += " under " + text_of(row);
  } while (row != start);
  return text;
}

}  // namespace

void row_report::add(std::string_view table, std::initializer_list<key> numbers,
                     std::string_view text) {
  std::string line(table);
  char separator = ' ';
  for (const key number : numbers) {
    line += separator + text_of(number);
    separator = '/';
  }
  lines_.push_back(line.append(": ").append(text));
}

std::string text_of(key number) {
  if (number == no_key) return "null";
  return number == not_a_key ? "no number" : std::to_string(number);
}

std::map<key, std::string> loops_in(const std::map<key, key>& parents) {
  std::map<key, std::string> loops;
  std::map<key, key> walked_from;  // where the walk began that came past a row first
  for (const auto& [start, parent_of_start] : parents) {
    key row = start;
    while (parents.contains(row) && walked_from.try_emplace(row, start).second) {
      row = parents.at(row);
    }
    const bool met_itself = parents.contains(row) && walked_from.at(row) == start;
    if (met_itself) loops.emplace(row, loop_from(row, parents));
  }
  return loops;
}

}  // namespace rule_store
