#include "store/sqlite_engine.h"

#include <filesystem>
#include <memory>
#include <utility>

#include "store/error.h"
#include "store/text.h"
#include "store/text_values.h"

namespace ADODB {
namespace {

/// Resets a prepared statement when its use ends, by a failure too: a statement that stopped
/// between two rows would keep the store locked.
class use_of {
 public:
  explicit use_of(sqlite3_stmt* statement) : statement_(statement) {}
  use_of(const use_of&) = delete;
  use_of& operator=(const use_of&) = delete;
  ~use_of() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
  }

 private:
  sqlite3_stmt* statement_;
};

struct binder {
  sqlite3_stmt* statement;
  int position;

  int operator()(std::monostate) const { return sqlite3_bind_null(statement, position); }
  int operator()(std::int64_t number) const {
    return sqlite3_bind_int64(statement, position, number);
  }
  int operator()(const decimal& number) const { return bind_number(number.digits); }
  int operator()(const quoted_number& number) const { return bind_number(number.text); }
  int operator()(bool answer) const { return (*this)(std::int64_t{answer}); }
  // SQLITE_STATIC: the text lives until the statement is reset, so SQLite makes no copy.
  int operator()(const std::string& text) const {
    return sqlite3_bind_text64(statement, position, text.data(), text.size(), SQLITE_STATIC,
                               SQLITE_UTF8);
  }

  // SQLite itself reads reals less precisely.
  int bind_number(const std::string& text) const {
    if (!is_kept_exactly(text))
      throw Error(failure_kind::refused_by_check, "the number has too many digits to be kept");
    if (const auto whole = read_whole_number(text)) return (*this)(*whole);
    return sqlite3_bind_double(statement, position, read_number(text).value());
  }
};

// The value is one that SQLite doesn't guard against other threads; a connection has one only.
void add_cell(result_cells& cells, sqlite3_value* value, bool is_boolean) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return cells.add_null();
    case SQLITE_INTEGER: {
      const std::int64_t number = sqlite3_value_int64(value);
      return is_boolean ? cells.add(number != 0) : cells.add(number);
    }
    case SQLITE_FLOAT:
      return cells.add(sqlite3_value_double(value));
    case SQLITE_BLOB: {
      const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
      return cells.add({bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))});
    }
    default: {  // a file may hold its texts as UTF-16: asking for text converts them
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
      cells.add({text, static_cast<std::size_t>(sqlite3_value_bytes(value))});
    }
  }
}

column_names names_of(sqlite3_stmt* statement) {
  auto names = std::make_shared<std::vector<std::string>>();
  for (int column = 0; column < sqlite3_column_count(statement); ++column)
    names->emplace_back(sqlite3_column_name(statement, column));
  return names;
}

std::vector<bool> boolean_columns_of(sqlite3_stmt* statement) {
  std::vector<bool> answers;
  for (int column = 0; column < sqlite3_column_count(statement); ++column) {
    const char* const type = sqlite3_column_decltype(statement, column);
    answers.push_back(type && equal_in_any_case(type, "boolean"));
  }
  return answers;
}

int preparations_of(sqlite3_stmt* statement) {
  return sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0);
}

}  // namespace

// A path that doesn't begin at the root would name another file once the host changes its folder.
sqlite_engine::sqlite_engine(const connection_settings& settings)
    : path_(std::filesystem::absolute(settings.values.at("database")).string()),
      access_(settings.opened_for),
      while_waiting_(settings.while_waiting),
      lock_limit_(limits_of(settings).lock),
      database_(open_store()) {}

// SQLite takes an empty file for an empty database, but it is what is left of some other file.
sqlite_database sqlite_engine::open_store() const {
  sqlite_database database(path_, access_, while_waiting_, lock_limit_);
  if (database.first_cell("PRAGMA page_count") == "0")
    throw Error(failure_kind::other, path_ + ": " + sqlite3_errstr(SQLITE_NOTADB));
  return database;
}

result sqlite_engine::execute(const statement& statement) {
  return run(kept_statement_of(statement.text), statement.parameters);
}

result sqlite_engine::execute(std::string_view text) {
  prepared_statement once = prepare(text);
  return run(once, {});
}

void sqlite_engine::begin(purpose purpose) {
  sqlite_database& database = usable_database();
  require_in_place();
  database.run(purpose == purpose::writing ? "BEGIN IMMEDIATE" : "BEGIN");
  in_transaction_ = true;
}

void sqlite_engine::commit() {
  sqlite_database& database = usable_database();
  require_in_place();
  database.run("COMMIT");
  in_transaction_ = false;
  require_in_place();
}

void sqlite_engine::rollback() {
  // After a failure such as a full disk SQLite has taken everything back by itself.
  if (database_ && database_->has_transaction()) database_->run("ROLLBACK");
  in_transaction_ = false;
}

sqlite_database& sqlite_engine::usable_database() {
  if (database_) return *database_;
  if (in_transaction_)
    throw Error(failure_kind::lost_connection,
                path_ + ": the file was taken away, and the transaction with it");
  try {
    return database_.emplace(open_store());
  } catch (const Error& failure) {
    throw Error(failure_kind::lost_connection, failure.what());
  }
}

void sqlite_engine::require_in_place() {
  if (access_ == access::reading || database_->is_in_place()) return;
  if (database_->leave()) {
    statements_.clear();
    database_.reset();
  }
  throw Error(failure_kind::lost_connection,
              path_ + ": the file was moved, deleted or replaced while it was open");
}

sqlite_engine::prepared_statement sqlite_engine::prepare(std::string_view text) {
  prepared_statement fresh;
  fresh.handle = usable_database().prepare(text);
  fresh.columns = names_of(fresh.handle.get());
  fresh.is_boolean = boolean_columns_of(fresh.handle.get());
  return fresh;
}

sqlite_engine::prepared_statement& sqlite_engine::kept_statement_of(const words& text) {
  static_cast<void>(usable_database());
  if (const auto found = statements_.find(text); found != statements_.end()) return found->second;
  return statements_.emplace(text, prepare(text.with_parameters(parameter_form::question_mark)))
      .first->second;
}

// Looks for the file after the statement too: it may be taken away while that is being committed.
result sqlite_engine::run(prepared_statement& statement, const std::vector<parameter>& parameters) {
  // Some failures make SQLite roll back by itself. Each later statement would then be committed at
  // once, although the caller means to roll all of them back together.
  if (in_transaction_ && !database_->has_transaction())
    throw Error(failure_kind::other, "the transaction was taken back after a failure");
  const bool commits = !in_transaction_ && sqlite3_stmt_readonly(statement.handle.get()) == 0;
  if (commits) require_in_place();
  result rows = rows_of(statement, parameters);
  if (commits) require_in_place();
  return rows;
}

void sqlite_engine::bind(sqlite3_stmt* statement, const std::vector<parameter>& parameters) const {
  if (static_cast<std::size_t>(sqlite3_bind_parameter_count(statement)) != parameters.size())
    throw Error(failure_kind::other, "the statement leaves a value open");
  int position = 0;
  for (const parameter& value : parameters)
    database_->check(std::visit(binder{statement, ++position}, value));
}

result sqlite_engine::rows_of(prepared_statement& statement,
                              const std::vector<parameter>& parameters) {
  sqlite3_stmt* const handle = statement.handle.get();
  const use_of use(handle);
  bind(handle, parameters);
  bool has_row = database_->step(handle);
  // If a table has changed since, the first step prepares the statement anew, with other columns.
  if (const int preparations = preparations_of(handle); preparations != statement.preparations) {
    statement.preparations = preparations;
    statement.columns = names_of(handle);
    statement.is_boolean = boolean_columns_of(handle);
  }
  result rows{statement.columns, {}};
  const std::size_t columns = rows.columns->size();
  rows.cells.reserve(has_row ? columns : 0);  // most results have a row or two
  for (; has_row; has_row = database_->step(handle)) {
    for (std::size_t column = 0; column < columns; ++column)
      add_cell(rows.cells, sqlite3_column_value(handle, static_cast<int>(column)),
               statement.is_boolean[column]);
  }
  return rows;
}

}  // namespace ADODB
