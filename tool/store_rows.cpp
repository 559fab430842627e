#include "tool/store_rows.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "store/error.h"
#include "store/text.h"
#include "store/text_values.h"

namespace rule_store {
namespace {

/// Takes the columns of a row from left to right.
class row_reader {
 public:
  explicit row_reader(const ADODB::Fields& row) : row_(row) {}

  ADODB::Value value() { return row_.Item(next_++).Value(); }
  std::string text() { return value().text(); }
  key number() {
    const ADODB::Value number = value();
    if (number.is_null()) return no_key;
    try {
      return number.number();
    } catch (const ADODB::Error&) {
      return not_a_key;  // SQLite keeps any text in any column
    }
  }
  key number_but_0() {
    const key found = number();
    return found == 0 ? no_key : found;
  }
  bound ends() {
    ADODB::Value end = value();
    return {std::move(end), value()};
  }

 private:
  ADODB::Fields row_;
  std::size_t next_ = 0;
};

// The members of each row below are filled in the order in which they stand, which is the order of
// the columns in the select.

title_row read_title(row_reader row) {
  return {.no = row.number(),
          .parent = row.number(),
          .kind = row.text(),
          .title = row.value(),
          .comment = row.text(),
          .top_rule = row.number()};
}

rule_row read_rule(row_reader row) {
  rule_row rule = {.definition = row.number(),
                   .parent = row.number(),
                   .cond_type = row.text(),
                   .no = row.number(),
                   .use_type = row.text(),
                   .field_id = row.text(),
                   .lines = row.number_but_0(),
                   .title = row.text(),
                   .replace_type = row.text(),
                   .content = {}};
  for (const char* type : {"S", "T", "I", "M", "F"}) {
    if (std::string content = row.text(); type == rule.replace_type) rule.content = content;
  }
  return rule;
}

ADODB::Value answer_in(const std::string& text) {
  const std::string word = ADODB::lower(text);
  if (word.empty()) return {};
  if (word == "1" || word == "true") return ADODB::Value(true);
  return word == "0" || word == "false" ? ADODB::Value(false) : ADODB::Value(text);
}

line_row read_line(row_reader row) {
  return {.definition = row.number(),
          .condition = row.number(),
          .sno = row.number(),
          .use_type = row.text(),
          .text = row.ends(),
          .date_from = row.ends(),
          .date_to = row.ends(),
          .number_from = row.ends(),
          .number_to = row.ends(),
          .answer = answer_in(row.text())};
}

counter_row read_counters(row_reader row) {
  return {.replace = row.number(), .replace_m = row.number(), .replace_cond = row.number()};
}

template <class Row>
std::vector<Row> read_all(ADODB::Connection& connection, std::string_view select,
                          Row (*read)(row_reader)) {
  ADODB::Recordset found = connection.Execute(select);
  std::vector<Row> rows;
  for (; !found.eof(); found.MoveNext()) rows.push_back(read(row_reader(found.Fields())));
  return rows;
}

std::map<std::string, field_row> read_fields(ADODB::Connection& connection) {
  std::map<std::string, field_row> fields;
  ADODB::Recordset found = connection.Execute("select field_id,field_name,attr from field");
  for (; !found.eof(); found.MoveNext()) {
    row_reader row(found.Fields());
    const std::string id = row.text();
    fields[id] = {.name = row.text(), .attr = row.text()};
  }
  return fields;
}

// As a boolean b_val would hide what else a file may hold there, so that it is read as a text.
store_rows read_unsorted(ADODB::Connection& connection) {
  return {.titles = read_all(connection,
                             "select replace_no,p_replace_no,kind,title,comment,replace_m_no"
                             " from replace",
                             read_title),
          .rules = read_all(connection,
                            "select replace_no,p_replace_m_no,replace_cond_type,replace_m_no,"
                            "use_type,field_id,replace_cond_no,replace_title,replace_type,r_text,"
                            "r_text_filename,r_image_filename,r_mmedia_filename,r_field_id"
                            " from replace_m",
                            read_rule),
          .lines = read_all(connection,
                            "select replace_no,replace_cond_no,sno,use_type,s_val,s_method,"
                            "d_f_val,d_f_method,d_t_val,d_t_method,n_f_val,n_f_method,n_t_val,"
                            "n_t_method,cast(b_val as text) from replace_cond",
                            read_line),
          .fields = read_fields(connection),
          .counters = read_all(connection, "select replace,replace_m,replace_cond from seqno",
                               read_counters)};
}

auto place(const rule_row& row) {
  return std::make_tuple(row.definition, row.parent, row.is_otherwise(), row.no);
}

auto place(const line_row& row) {
  return std::make_tuple(row.definition, row.condition, row.sno);
}

// Sorted here and not by the engine: engines differ in where they put nulls.
void sort(store_rows& rows) {
  std::ranges::sort(rows.titles, {}, &title_row::no);
  std::ranges::sort(rows.rules, {}, [](const rule_row& row) { return place(row); });
  std::ranges::sort(rows.lines, {}, [](const line_row& row) { return place(row); });
}

/// The rows that have this key. `rows` stand in the order of it.
template <class Row, class Key, class Projection>
std::span<const Row> equal_rows(std::span<const Row> rows, const Key& wanted, Projection key_of) {
  const auto first = std::ranges::lower_bound(rows, wanted, {}, key_of);
  return {first, std::ranges::upper_bound(first, rows.end(), wanted, {}, key_of)};
}

}  // namespace

const title_row* store_rows::title(key no) const {
  const auto found = std::ranges::lower_bound(titles, no, {}, &title_row::no);
  return found != titles.end() && found->no == no ? &*found : nullptr;
}

std::span<const rule_row> store_rows::rules_of(key definition) const {
  return equal_rows<rule_row>(rules, definition, &rule_row::definition);
}

std::span<const rule_row> store_rows::children(key definition, key parent) const {
  return equal_rows<rule_row>(rules_of(definition), parent, &rule_row::parent);
}

std::span<const line_row> store_rows::lines_of(key definition, key condition) const {
  return equal_rows<line_row>(
      lines, std::make_pair(definition, condition),
      [](const line_row& line) { return std::make_pair(line.definition, line.condition); });
}

line_row line_row::without_fillers() const {
  line_row line = *this;
  for (bound* end : {&line.number_from, &line.number_to})
    if (!end->has_method() && ADODB::read_number(end->value.text()) == 0.0) *end = {};
  if (use_type == "D") return line;
  for (bound* end : {&line.date_from, &line.date_to})
    if (!end->has_method() && end->value.text() == "1900/01/01") *end = {};
  return line;
}

store_rows read_tables(ADODB::Connection& connection, const progress& tell) {
  tell("reading all tables");
  store_rows rows = read_unsorted(connection);
  sort(rows);
  return rows;
}

store_rows read_store(const std::string& connect_string, const progress& tell) {
  ADODB::Connection connection;
  connection.Open(connect_string, ADODB::access::reading);
  connection.BeginTrans();
  return read_tables(connection, tell);
}

}  // namespace rule_store
