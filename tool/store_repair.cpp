#include "tool/store_repair.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "store/sql.h"
#include "tool/print_text.h"
#include "tool/row_report.h"
#include "tool/store_check.h"
#include "tool/store_rows.h"
#include "tool/table_checks.h"

namespace rule_store {
namespace {

using ADODB::sql;

/// Mends the rows of a store, which are given as they were read before.
class row_repair {
 public:
  row_repair(ADODB::Connection& connection, const store_rows& rows, row_report& mended,
             const progress& tell)
      : connection_(connection), rows_(rows), mended_(mended), tell_(tell) {
    for (const rule_row& row : rows.rules) ++rows_with_[{row.definition, row.no}];
  }

  void run() {
    for (const title_row& row : rows_.titles) bring_back(row);
    for (const rule_row& row : rows_.rules) {
      if (!rows_.title(row.definition)) {
        remove(row, "its definition does not exist");
      } else if (row.parent != 0 && !rows_with_.contains({row.definition, row.parent})) {
        remove_branch(row);
      }
    }
    remove_lines();
  }

 private:
  /// Whether a statement can name the row by this number.
  static bool is_number(key no) { return no != no_key && no != not_a_key; }

  void bring_back(const title_row& row) {
    if (row.parent == 0 || rows_.title(row.parent) || !is_number(row.no)) return;
    mend(sql("update replace set p_replace_no=0 where replace_no=<replace_no>", {row.no}),
         "replace", {row.no},
         title_text(row) + " brought back under the root: its folder " + text_of(row.parent) +
             " does not exist");
  }

  void remove_branch(const rule_row& top) {
    std::vector<std::pair<const rule_row*, std::string>> waiting = {
        {&top, "its parent " + text_of(top.parent) + " does not exist"}};
    while (!waiting.empty()) {
      const auto [row, reason] = waiting.back();
      waiting.pop_back();
      if (!remove(*row, reason)) continue;
      for (const rule_row& child : rows_.children(row->definition, row->no)) {
        waiting.emplace_back(&child, "it lies under " + text_of(row->no));
      }
    }
  }

  // Where two rows have the same number, as they may without a primary key, nobody but the user
  // knows to which of them the rows below belong.
  bool remove(const rule_row& row, const std::string& reason) {
    const bool is_alone = rows_with_.at({row.definition, row.no}) == 1;
    if (!is_alone || !is_number(row.definition) || !is_number(row.no)) return false;
    const std::string content = row.is_value() ? ", " + content_text(row, rows_) : "";
    mend(sql("delete from replace_m where replace_no=<replace_no> and replace_m_no=<replace_m_no>",
             {row.definition, row.no}),
         "replace_m", {row.definition, row.no},
         rule_text(row, rows_) + content + " removed: " + reason);
    removed_.insert(&row);
    return true;
  }

  // Whatever kind of row bears the number of the lines keeps them: it may be the kind that is
  // wrong.
  void remove_lines() {
    std::set<std::pair<key, key>> in_use;
    for (const rule_row& row : rows_.rules) {
      if (!removed_.contains(&row)) in_use.emplace(row.definition, row.lines);
    }
    for (const line_row& line : rows_.lines) {
      if (!rows_.title(line.definition)) {
        remove(line, "its definition does not exist");
      } else if (!in_use.contains({line.definition, line.condition})) {
        remove(line, "no condition points to it");
      }
    }
  }

  void remove(const line_row& line, const std::string& reason) {
    if (!is_number(line.definition) || !is_number(line.condition) || !is_number(line.sno)) return;
    mend(sql("delete from replace_cond where replace_no=<replace_no> and "
             "replace_cond_no=<replace_cond_no> and sno=<sno>",
             {line.definition, line.condition, line.sno}),
         "replace_cond", {line.definition, line.condition, line.sno},
         line_text(line) + " removed: " + reason);
  }

  void mend(const ADODB::statement& change, std::string_view table,
            std::initializer_list<key> numbers, const std::string& what) {
    connection_.Execute(change);
    mended_.add(table, numbers, what);
    tell_("mending: row " + std::to_string(mended_.lines().size()));
  }

  ADODB::Connection& connection_;
  const store_rows& rows_;
  row_report& mended_;
  const progress& tell_;
  std::map<std::pair<key, key>, int> rows_with_;  ///< how many bear a definition and a number
  std::set<const rule_row*> removed_;
};

void raise_counters(ADODB::Connection& connection, const store_rows& rows, row_report& mended) {
  if (rows.counters.size() != 1) return;
  const auto raise = [&](const ADODB::words& update, const char* name, key counter, key highest) {
    if (counter >= highest || highest > highest_key) return;
    connection.Execute(sql(update, {highest}));
    mended.add("seqno", {},
               std::string(name) + " raised from " + text_of(counter) + " to " + text_of(highest));
  };
  const counter_row& counters = rows.counters.front();
  const counter_row highest = highest_numbers(rows);
  raise("update seqno set replace=<highest>", "replace", counters.replace, highest.replace);
  raise("update seqno set replace_m=<highest>", "replace_m", counters.replace_m, highest.replace_m);
  raise("update seqno set replace_cond=<highest>", "replace_cond", counters.replace_cond,
        highest.replace_cond);
}

}  // namespace

void repair_store(const std::string& connect_string,
                  const std::function<void(const repair_result&)>& report, const progress& tell) {
  ADODB::Connection connection;
  connection.Open(connect_string);
  connection.BeginTrans(ADODB::purpose::writing);
  row_report mended;
  const store_rows found = read_tables(connection, tell);
  row_repair(connection, found, mended, tell).run();
  raise_counters(connection, read_tables(connection, tell), mended);
  report({mended.lines(), faults_of(read_tables(connection, tell))});
  connection.CommitTrans();
}

}  // namespace rule_store
