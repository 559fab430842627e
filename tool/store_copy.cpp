#include "tool/store_copy.h"

#include <algorithm>
#include <utility>

#include "store/connection.h"
#include "store/error.h"
#include "store/sql.h"
#include "tool/copied_tables.h"
#include "tool/store_check.h"
#include "tool/store_maker.h"
#include "tool/store_rows.h"

namespace rule_store {
namespace {

constexpr std::size_t most_unfit_rows = 100;
constexpr std::size_t rows_at_once = 1000;

/// A new file that goes again unless the copy gets to its end.
class unfinished_file {
 public:
  explicit unfinished_file(std::string path) : path_(std::move(path)) {}
  unfinished_file(const unfinished_file&) = delete;
  unfinished_file& operator=(const unfinished_file&) = delete;
  ~unfinished_file() {
    if (!path_.empty()) remove_store_file(path_);
  }
  void keep() { path_.clear(); }

 private:
  std::string path_;
};

/// "replace_cond 12/3/1".
std::string row_name(const copied_table& table, const ADODB::Fields& row) {
  std::string name(table.name);
  for (std::size_t key = 0; key < table.keys; ++key)
    name += (key == 0 ? ' ' : '/') + row.Item(key).Value().text();
  return name;
}

ADODB::statement insert_of(const copied_table& table, const ADODB::Fields& row) {
  ADODB::statement insert{table.insert, {}};
  for (std::size_t column = 0; column < row.Count(); ++column) {
    const ADODB::argument cell(row.Item(column).Value());
    insert.parameters.push_back(table.insert.is_quoted(column) ? cell.quoted() : cell.unquoted());
  }
  return insert;
}

bool is_about_the_row(const ADODB::Error& failure) {
  return failure.kind() == ADODB::failure_kind::refused_by_check ||
         failure.kind() == ADODB::failure_kind::refused_by_key ||
         failure.kind() == ADODB::failure_kind::other;
}

bool same_cells(const ADODB::Fields& one, const ADODB::Fields& other) {
  for (std::size_t column = 0; column < one.Count(); ++column) {
    const ADODB::Value cell = one.Item(column).Value();
    const ADODB::Value copied = other.Item(column).Value();
    if (cell.is_null() != copied.is_null() || cell.text() != copied.text()) return false;
  }
  return true;
}

/// Puts the rows of a source into the tables of a target, inside the target's transaction.
class row_copier {
 public:
  row_copier(const table_rows& rows, ADODB::Connection& target, const progress& tell)
      : rows_(rows), target_(target), tell_(tell) {
    for (const copied_rows& table : rows) all_ += table.rows.RecordCount();
  }

  /// False where the target refuses a row.
  bool insert_all() {
    try {
      for_each_row([this](const copied_table& table, const ADODB::Fields& row) {
        waiting_.push_back(insert_of(table, row));
        if (waiting_.size() == rows_at_once) insert_waiting();
      });
      insert_waiting();
    } catch (const ADODB::Error& failure) {
      if (!is_about_the_row(failure)) throw;
      return false;
    }
    return true;
  }

  // A savepoint for each row lets the transaction go on behind a refused one on every engine.
  std::vector<std::string> refused_rows() {
    std::vector<std::string> refused;
    std::size_t tried = 0;
    for_each_row([&](const copied_table& table, const ADODB::Fields& row) {
      if (refused.size() == most_unfit_rows) return;
      if (tried++ % 100 == 0) tell_("looking for rows that don't fit: " + std::to_string(tried));
      target_.Execute("savepoint a_row");
      try {
        target_.Execute(insert_of(table, row));
      } catch (const ADODB::Error& failure) {
        if (!is_about_the_row(failure)) throw;
        target_.Execute("rollback to savepoint a_row");
        refused.push_back(row_name(table, row) + ": " + failure.what());
      }
      target_.Execute("release savepoint a_row");
    });
    return refused;
  }

  /// The rows that the target took and doesn't hold as they were: a number with more digits than it
  /// keeps, say.
  std::vector<std::string> changed_rows() {
    std::vector<std::string> changed;
    const table_rows copied = read_rows(target_, tell_);
    auto next = copied.begin();
    for (const auto& [table, rows] : rows_) {
      const ADODB::Recordset& there = (next++)->rows;
      for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
        const bool same =
            row < there.RecordCount() && same_cells(rows.Fields(row), there.Fields(row));
        if (!same && changed.size() < most_unfit_rows)
          changed.push_back(row_name(table, rows.Fields(row)) +
                            ": the target would hold it otherwise");
      }
    }
    return changed;
  }

 private:
  template <class Visitor>
  void for_each_row(const Visitor& visit) const {
    for (const auto& [table, rows] : rows_)
      for (std::size_t row = 0; row < rows.RecordCount(); ++row) visit(table, rows.Fields(row));
  }

  void insert_waiting() {
    target_.ExecuteAll(waiting_);
    done_ += waiting_.size();
    tell_("copying: " + std::to_string(done_) + " of " + std::to_string(all_) + " rows");
    waiting_.clear();
  }

  const table_rows& rows_;
  ADODB::Connection& target_;
  const progress& tell_;
  std::size_t all_ = 0;
  std::size_t done_ = 0;
  std::vector<ADODB::statement> waiting_;  ///< inserts that are sent together
};

/// The counters' row alone doesn't make a store used: every new one has it.
void refuse_used_tables(const table_rows& tables) {
  for (const auto& [table, rows] : tables) {
    if (table.keys > 0 && rows.RecordCount() > 0)
      throw ADODB::Error(ADODB::failure_kind::other,
                         "the target holds rows already, in its table " + std::string(table.name));
  }
}

/// In the target's open transaction. What it gives is empty if all rows stand as in the source.
std::vector<std::string> copy_rows(const table_rows& rows, ADODB::Connection& target,
                                   const progress& tell) {
  refuse_used_tables(read_rows(target, tell));
  target.Execute("delete from seqno");
  target.Execute("savepoint no_row");
  row_copier copier(rows, target, tell);
  if (!copier.insert_all()) {
    target.Execute("rollback to savepoint no_row");
    if (auto refused = copier.refused_rows(); !refused.empty()) return refused;
  }
  return copier.changed_rows();
}

}  // namespace

copy_report copy_store(const std::string& source, const std::string& target, const progress& tell) {
  ADODB::Connection from;
  from.Open(source, ADODB::access::reading);
  from.BeginTrans();
  const table_rows rows = read_rows(from, tell);
  copy_report report{{}, faults_of(read_tables(from, tell))};
  from.Close();

  const std::string new_file = missing_file(target);
  if (!new_file.empty()) make_store(target, content::empty);
  unfinished_file file(new_file);
  ADODB::Connection to;
  to.Open(connect_string_of(target));
  to.BeginTrans(ADODB::purpose::writing);
  report.unfit = copy_rows(rows, to, tell);
  if (!report.unfit.empty()) return report;
  if (faults_of(read_tables(to, tell)) != report.faults)
    throw ADODB::Error(ADODB::failure_kind::other, "the copy does not read like its source");
  to.CommitTrans();
  file.keep();
  return report;
}

}  // namespace rule_store
