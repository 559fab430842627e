#include "store/postgresql_engine.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "store/error.h"
#include "store/postgresql_values.h"
#include "store/text.h"

namespace ADODB {
namespace {

constexpr std::string_view tables_have_changed = "0A000";
constexpr std::string_view name_is_unknown = "26000";

/// Whether the answer is the failure `state`. After the two above nothing has been run.
bool has_state(const PGresult* answer, std::string_view state) {
  const char* const field = PQresultErrorField(answer, PG_DIAG_SQLSTATE);
  return field && field == state;
}

/// The name of a prepared statement. It follows from the statement alone, so that even in a session
/// that is shared unnoticed no program runs what another one has prepared under the same name.
std::string name_of(const words& text, const std::vector<bound_value>& values,
                    std::uint64_t generation) {
  fingerprint content = text.fingerprint();
  for (const bound_value& value : values) content.add(std::uint64_t{value.type});
  content.add(generation);
  return "vorlumine_" + content.text();
}

/// The program's own selects change nothing.
bool is_look_up(std::string_view text) {
  constexpr std::string_view select = "select ";
  return equal_in_any_case(trimmed(text).substr(0, select.size()), select);
}

column_names names_of(const PGresult* answer) {
  auto names = std::make_shared<std::vector<std::string>>();
  for (int column = 0; column < PQnfields(answer); ++column)
    names->emplace_back(PQfname(answer, column));
  return names;
}

result rows_of(const PGresult* answer) {
  result rows{names_of(answer), {}};
  const int columns = PQnfields(answer);
  const int count = PQntuples(answer);
  rows.cells.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row)
    for (int column = 0; column < columns; ++column) add_cell(rows.cells, answer, row, column);
  return rows;
}

}  // namespace

postgresql_engine::postgresql_engine(connection_settings settings)
    : settings_(std::move(settings)), session_(std::make_unique<postgresql_session>(settings_)) {}

template <class Request>
std::invoke_result_t<Request, postgresql_session&> postgresql_engine::sent_again_if_lost(
    bool changes_nothing, const Request& request) {
  postgresql_session& session = usable_session();
  try {
    return request(session);
  } catch (const Error& failure) {
    const bool is_lost = failure.kind() == failure_kind::lost_connection;
    if (!is_lost || !changes_nothing || in_transaction_ || session.was_given_up()) throw;
  }
  return request(usable_session());
}

result postgresql_engine::execute(const statement& statement) {
  std::vector<bound_value> values;
  values.reserve(statement.parameters.size());
  for (const parameter& value : statement.parameters) values.push_back(bound(value));
  const auto request = [&](postgresql_session& session) {
    return rows_of(answer_to(session, statement.text, values).get());
  };
  return sent_again_if_lost(is_look_up(statement.text.text()), request);
}

result postgresql_engine::execute(std::string_view text) {
  refuse_zero_character(text);
  return sent_again_if_lost(is_look_up(text), [&](postgresql_session& session) {
    const postgresql_answer answer = session.execute_text(std::string(text), {});
    session.check(answer.get());
    return rows_of(answer.get());
  });
}

void postgresql_engine::begin(purpose) {
  // All reads of the transaction show the store as of its first statement, and writing to a row
  // that another program has changed since is refused as stale, instead of overwriting the change.
  const char* const reads = settings_.opened_for == access::reading ? " READ ONLY" : "";
  const std::string words = std::string("BEGIN ISOLATION LEVEL REPEATABLE READ") + reads;
  sent_again_if_lost(true, [&](postgresql_session& session) { session.begin(words); });
  in_transaction_ = true;
}

void postgresql_engine::commit() {
  usable_session().commit();
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
  if (!in_transaction_ && session_->has_ended()) connect_anew();
  if (session_->is_lost())
    throw Error(failure_kind::lost_connection,
                "the connection to the server was lost, and the transaction with it");
  // To a COMMIT the server would answer with a rollback, and with no error.
  if (in_transaction_ && !session_->has_transaction())
    throw Error(failure_kind::other, "the transaction was taken back after a failure");
  return *session_;
}

void postgresql_engine::connect_anew() {
  prepared_.clear();
  try {
    session_ = std::make_unique<postgresql_session>(settings_);
  } catch (const Error& failure) {
    throw Error(failure_kind::lost_connection,
                std::string("the connection to the server was lost, and can't be made again: ") +
                    failure.what());
  }
}

postgresql_answer postgresql_engine::answer_to(postgresql_session& session, const words& text,
                                               const std::vector<bound_value>& values) {
  if (session.is_pooled()) {
    postgresql_answer answer =
        session.execute_text(text.with_parameters(parameter_form::numbered), values);
    session.check(answer.get());
    return answer;
  }
  std::string name = prepared(text, values);
  postgresql_answer answer = session.execute(name, values);
  const bool changed = has_state(answer.get(), tables_have_changed);
  if (changed) ++generation_;
  if (changed || has_state(answer.get(), name_is_unknown)) {
    prepared_.erase(name);
    // Inside a transaction this failure has aborted the transaction: a second try would fail too.
    if (!in_transaction_) answer = session.execute(prepared(text, values), values);
  }
  session.check(answer.get());
  return answer;
}

/// Prepares the statement at its first use in the session, and gives its name on the server.
std::string postgresql_engine::prepared(const words& text, const std::vector<bound_value>& values) {
  std::string name = name_of(text, values, generation_);
  if (prepared_.contains(name)) return name;
  session_->prepare(name, text.with_parameters(parameter_form::numbered), values);
  prepared_.insert(name);
  return name;
}

}  // namespace ADODB
