#include "store/postgresql_engine.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

#include "store/error.h"
#include "store/postgresql_values.h"

namespace ADODB {
namespace {

// Far more shapes than the system has; only texts with something unusual in them come near it.
constexpr std::size_t kept_statements = 256;

std::vector<Oid> types_of(const std::vector<literal>& literals) {
  std::vector<Oid> types;
  std::ranges::transform(literals, std::back_inserter(types), type_of);
  return types;
}

std::vector<std::string> texts_of(const std::vector<literal>& literals) {
  std::vector<std::string> texts;
  std::ranges::transform(literals, std::back_inserter(texts), text_of);
  return texts;
}

/// What a statement is kept under: a prepared statement has its parameters' types for good.
std::string key_of(const statement_shape& shape) {
  std::string key = shape.text;
  for (const literal& value : shape.literals)
    key.append(1, ' ').append(std::to_string(type_of(value)));
  return key;
}

/// The server knows the prepared statement no more, or its tables have changed; it ran nothing.
bool is_outdated(const PGresult* answer) {
  const char* const field = PQresultErrorField(answer, PG_DIAG_SQLSTATE);
  const std::string_view state = field ? field : "";
  return state == "0A000" || state == "26000";
}

column_names names_of(const PGresult* answer) {
  auto names = std::make_shared<std::vector<std::string>>();
  for (int column = 0; column < PQnfields(answer); ++column)
    names->emplace_back(PQfname(answer, column));
  return names;
}

// A parameter ends at its first zero character: what stands behind would be lost unnoticed.
void refuse_zero_characters(std::string_view statement) {
  if (statement.find('\0') != std::string_view::npos)
    throw Error(failure_kind::other, "the server can't store a text with a zero character");
}

}  // namespace

postgresql_engine::postgresql_engine(connection_settings settings)
    : settings_(std::move(settings)), session_(std::make_unique<postgresql_session>(settings_)) {}

result postgresql_engine::execute(std::string_view statement) {
  refuse_zero_characters(statement);
  const postgresql_answer answer = answer_to(lift_literals(statement, placeholder::numbered));
  result rows{names_of(answer.get()), {}};
  const int columns = PQnfields(answer.get());
  const int count = PQntuples(answer.get());
  rows.cells.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row)
    for (int column = 0; column < columns; ++column)
      add_cell(rows.cells, answer.get(), row, column);
  return rows;
}

void postgresql_engine::begin(purpose) {
  // What a dialog has read stays as it was: writing where another program has written meanwhile is
  // refused as stale instead of going over it.
  usable_session().run("BEGIN ISOLATION LEVEL REPEATABLE READ");
  in_transaction_ = true;
}

void postgresql_engine::commit() {
  usable_session().run("COMMIT");
  in_transaction_ = false;
}

void postgresql_engine::rollback() {
  in_transaction_ = false;
  if (session_->is_lost()) return;
  try {
    session_->run("ROLLBACK");
  } catch (const Error& failure) {
    if (failure.kind() != failure_kind::lost_connection) throw;
  }
}

postgresql_session& postgresql_engine::usable_session() {
  if (!in_transaction_ && session_->is_lost()) {
    names_.clear();
    session_ = std::make_unique<postgresql_session>(settings_);
  }
  if (session_->is_lost())
    throw Error(failure_kind::lost_connection,
                "the connection to the server was lost, and the transaction with it");
  // The server would take a COMMIT and quietly roll back.
  if (in_transaction_ && !session_->has_transaction())
    throw Error(failure_kind::other, "the transaction was taken back after a failure");
  return *session_;
}

postgresql_answer postgresql_engine::answer_to(const statement_shape& shape) {
  postgresql_session& session = usable_session();
  const std::string key = key_of(shape);
  const std::vector<std::string> parameters = texts_of(shape.literals);
  postgresql_answer answer = session.execute(name_of(shape, key), parameters);
  if (is_outdated(answer.get())) {
    names_.erase(key);
    // Inside a transaction the refusal has ended it, and nothing more can run.
    if (!in_transaction_) answer = session.execute(name_of(shape, key), parameters);
  }
  session.check(answer.get());
  return answer;
}

const std::string& postgresql_engine::name_of(const statement_shape& shape,
                                              const std::string& key) {
  if (const auto found = names_.find(key); found != names_.end()) return found->second;
  if (names_.size() >= kept_statements) {
    session_->run("DEALLOCATE ALL");
    names_.clear();
  }
  const std::string name = "statement_" + std::to_string(++prepared_);
  session_->prepare(name, shape.text, types_of(shape.literals));
  return names_.emplace(key, name).first->second;
}

}  // namespace ADODB
