#include "store/postgresql_engine.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "store/error.h"
#include "store/postgresql_pipeline.h"
#include "store/postgresql_values.h"

namespace ADODB {
namespace {

constexpr std::string_view tables_have_changed = "0A000";
constexpr std::string_view name_is_unknown = "26000";

/// Whether the answer is the failure `state`. After the two above nothing has been run.
bool has_state(const PGresult* answer, std::string_view state) {
  const char* const field = PQresultErrorField(answer, PG_DIAG_SQLSTATE);
  return field && field == state;
}

bool are_look_ups(std::span<const statement> statements) {
  return std::ranges::all_of(statements,
                             [](const statement& one) { return is_look_up(one.text.text()); });
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
  result rows;
  run({&statement, 1}, [&](result one) { rows = std::move(one); });
  return rows;
}

result postgresql_engine::execute(std::string_view text) {
  refuse_zero_character(text);
  return sent_again_if_lost(is_look_up(text), [&](postgresql_session& session) {
    const postgresql_answer answer = session.execute_text(std::string(text), {});
    session.check(answer.get());
    return rows_of(answer.get(), columns_of(answer.get()));
  });
}

// What goes to the server together outside a transaction is one to it: a refusal would take back
// what the statements before it have done.
void postgresql_engine::execute_all(std::span<const statement> statements,
                                    const result_taker& take) {
  if (in_transaction_ || are_look_ups(statements)) return run(statements, take);
  engine::execute_all(statements, take);
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

/// After a lost connection only the statements whose results have not come are sent again.
void postgresql_engine::run(std::span<const statement> statements, const result_taker& take) {
  const result_taker take_and_count = [&](result rows) {
    take(std::move(rows));
    statements = statements.subspan(1);
  };
  sent_again_if_lost(are_look_ups(statements), [&](postgresql_session& session) {
    for (std::size_t tried = 0; !statements.empty(); tried = statements.size()) {
      const postgresql_answer refusal =
          postgresql_pipeline(session, prepared_, statements, take_and_count).run();
      if (!refusal) return;
      // None is left if the failure is that of the commit which ends the pipeline.
      const bool mended = !statements.empty() && mend_names(refusal.get(), statements.front());
      // Inside a transaction the failure has aborted the transaction: a second try would fail too.
      if (!mended || in_transaction_ || statements.size() == tried) session.check(refusal.get());
    }
  });
}

/// Whether the statement was refused only because the server has not prepared it as this program
/// remembers. It is forgotten then, so that a second try prepares it anew.
bool postgresql_engine::mend_names(const PGresult* failure, const statement& refused) {
  if (has_state(failure, tables_have_changed)) {
    prepared_.rename_all();
    return true;
  }
  if (!has_state(failure, name_is_unknown)) return false;
  prepared_.remove(prepared_.name_of(refused.text, bound_values(refused)));
  return true;
}

}  // namespace ADODB
