#include "store/postgresql_session.h"

#include <poll.h>

#include <string_view>
#include <utility>

#include "store/error.h"

namespace ADODB {
namespace {

std::string without_line_end(std::string text) {
  text.erase(text.find_last_not_of(" \n") + 1);
  return text;
}

std::string_view field_of(const PGresult* answer, int field) {
  const char* const text = PQresultErrorField(answer, field);
  return text ? text : "";
}

bool is_copy(const PGresult* answer) {
  const ExecStatusType status = PQresultStatus(answer);
  return status == PGRES_COPY_IN || status == PGRES_COPY_OUT || status == PGRES_COPY_BOTH;
}

/// Whether the server or the pool ends the session with this failure.
bool tells_loss(const PGresult* answer) {
  const std::string_view severity = field_of(answer, PG_DIAG_SEVERITY_NONLOCALIZED);
  return severity == "FATAL" || severity == "PANIC";
}

failure_kind kind_of(std::string_view state) {
  if (state == "23505") return failure_kind::refused_by_key;
  if (state == "40001" || state == "40P01") return failure_kind::stale;
  if (state == "55P03" || state == "57014") return failure_kind::busy;
  if (state == "23514" || state == "23502" || state == "42804" || state.starts_with("22")) {
    return failure_kind::refused_by_check;
  }
  if (state == "25006") return failure_kind::read_only;
  if (state == "53100") return failure_kind::full;
  return failure_kind::other;
}

std::vector<Oid> types_of(const std::vector<bound_value>& values) {
  std::vector<Oid> types;
  types.reserve(values.size());
  for (const bound_value& value : values) types.push_back(value.type);
  return types;
}

std::vector<const char*> texts_of(const std::vector<bound_value>& values) {
  std::vector<const char*> texts;
  texts.reserve(values.size());
  for (const bound_value& value : values)
    texts.push_back(value.text ? value.text->c_str() : nullptr);
  return texts;
}

}  // namespace

bool is_failure(const PGresult* answer) {
  const ExecStatusType status = PQresultStatus(answer);
  return status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK;
}

postgresql_session::postgresql_session(const connection_settings& settings)
    : limits_(limits_of(settings)),
      settings_(limits_),
      handle_(connect(settings)),
      while_waiting_(settings.while_waiting) {
  if (PQstatus(handle_.get()) != CONNECTION_OK)
    throw Error(failure_kind::other, without_line_end(PQerrorMessage(handle_.get())));
  if (const char* const password = PQpass(handle_.get())) password_ = password;
  PQsetNoticeReceiver(
      handle_.get(), [](void*, const PGresult*) {}, nullptr);
  PQsetnonblocking(handle_.get(), 1);
  use_settings();
}

// A pool shows its clients process numbers of its own.
void postgresql_session::use_settings() {
  const postgresql_answer set =
      execute_text(settings_.of_session_of(PQbackendPID(handle_.get())), {});
  check(set.get());
  is_pooled_ = PQntuples(set.get()) == 0;
  if (is_pooled_) refuse_pool_of_statements();
}

void postgresql_session::refuse_pool_of_statements() {
  try {
    run("BEGIN READ ONLY");
    run("ROLLBACK");
  } catch (const Error& failure) {
    throw Error(failure_kind::other,
                std::string("the pool in front of the server keeps no transaction together; it has "
                            "to lend its sessions for a transaction at least: ") +
                    failure.what());
  }
}

postgresql_answer postgresql_session::execute_text(const std::string& text,
                                                   const std::vector<bound_value>& values) {
  if (is_pooled_ && !has_transaction()) return execute_with_settings(text, values);
  return answer_to(send(text, values));
}

int postgresql_session::send(const std::string& text, const std::vector<bound_value>& values) {
  const std::vector<Oid> types = types_of(values);
  const std::vector<const char*> texts = texts_of(values);
  return PQsendQueryParams(handle_or_fail(), text.c_str(), static_cast<int>(texts.size()),
                           types.data(), texts.data(), nullptr, nullptr, 0);
}

int postgresql_session::send_preparation(const std::string& name, const std::string& text,
                                         const std::vector<bound_value>& values) {
  const std::vector<Oid> types = types_of(values);
  return PQsendPrepare(handle_or_fail(), name.c_str(), text.c_str(), static_cast<int>(types.size()),
                       types.data());
}

int postgresql_session::send_prepared(const std::string& name,
                                      const std::vector<bound_value>& values) {
  const std::vector<const char*> texts = texts_of(values);
  return PQsendQueryPrepared(handle_or_fail(), name.c_str(), static_cast<int>(texts.size()),
                             texts.data(), nullptr, nullptr, 0);
}

/// What goes through a pipeline up to its end is one transaction to the server and to the pool.
postgresql_answer postgresql_session::execute_with_settings(
    const std::string& text, const std::vector<bound_value>& values) {
  PGconn* const handle = handle_or_fail();
  if (PQenterPipelineMode(handle) != 1 || send(settings_.of_transaction(), {}) != 1 ||
      send(text, values) != 1 || PQpipelineSync(handle) != 1)
    lose(without_line_end(PQerrorMessage(handle)));
  postgresql_answer whole;
  while (true) {
    wait();
    postgresql_answer part(PQgetResult(handle));
    if (part && PQresultStatus(part.get()) == PGRES_PIPELINE_SYNC) break;
    if (PQstatus(handle) != CONNECTION_OK) lose(without_line_end(PQerrorMessage(handle)));
    if (part && (!whole || !is_failure(whole.get()))) whole = std::move(part);
  }
  PQexitPipelineMode(handle);
  return whole;
}

void postgresql_session::begin(const std::string& words) {
  run(is_pooled_ ? words + settings_.behind_begin() : words);
}

// A commit that is cancelled while it waits for a standby is answered as if that had it, and would
// be lost with this server. So it is left to wait, and what became of it unknown.
void postgresql_session::commit() {
  is_committing_ = true;
  struct ending {
    bool& is_committing;
    ~ending() { is_committing = false; }
  } const end{is_committing_};
  run("SET LOCAL statement_timeout=0;COMMIT");
}

void postgresql_session::run(const std::string& script) {
  const postgresql_answer answer = answer_to(PQsendQuery(handle_or_fail(), script.c_str()));
  check(answer.get());
}

void postgresql_session::check(const PGresult* answer) {
  if (!is_failure(answer)) return;
  if (PQresultStatus(answer) == PGRES_EMPTY_QUERY)
    throw Error(failure_kind::other, "there is no statement to run");
  const std::string_view state = field_of(answer, PG_DIAG_SQLSTATE);
  std::string text(field_of(answer, PG_DIAG_MESSAGE_PRIMARY));
  if (text.empty()) text = without_line_end(PQresultErrorMessage(answer));
  if (PQstatus(handle_.get()) != CONNECTION_OK || tells_loss(answer)) lose(text);
  const std::string_view detail = field_of(answer, PG_DIAG_MESSAGE_DETAIL);
  const bool tells_password = !password_.empty() && detail.find(password_) != detail.npos;
  if (!detail.empty() && !tells_password) text.append("\n").append(detail);
  throw Error(kind_of(state), text);
}

// A session that ends while nothing is asked leaves its last word and the end of the stream.
bool postgresql_session::has_ended() {
  if (is_lost()) return true;
  if (is_shown_waiting_) return false;
  pollfd socket{PQsocket(handle_.get()), POLLIN, 0};
  while (::poll(&socket, 1, 0) > 0) {
    if (PQconsumeInput(handle_.get()) == 0 || PQstatus(handle_.get()) != CONNECTION_OK) {
      handle_.reset();
      return true;
    }
    static_cast<void>(PQisBusy(handle_.get()));  // takes in what has come
  }
  return false;
}

bool postgresql_session::has_transaction() const {
  return PQtransactionStatus(handle_.get()) == PQTRANS_INTRANS;
}

std::string postgresql_session::encoding() const {
  const char* const name = PQparameterStatus(handle_.get(), "server_encoding");
  return name ? name : "";
}

PGconn* postgresql_session::handle_or_fail() const {
  if (is_lost()) throw Error(failure_kind::lost_connection, "the connection to the server is lost");
  if (is_shown_waiting_)
    throw Error(failure_kind::other, "another command still waits for the server");
  return handle_.get();
}

/// Waits for the whole answer to what was just sent, and gives its first failure or else its last
/// rows.
postgresql_answer postgresql_session::answer_to(int sent) {
  require_sent(sent);
  postgresql_answer whole;
  while (true) {
    wait();
    postgresql_answer part(PQgetResult(handle_.get()));
    if (!part) break;
    if (is_copy(part.get())) lose("a statement began to copy a stream, which nobody here reads");
    if (!whole || !is_failure(whole.get())) whole = std::move(part);
  }
  if (!whole) lose(without_line_end(PQerrorMessage(handle_.get())));
  return whole;
}

/// Raises the failure of a call of libpq that was to send something.
void postgresql_session::require_sent(int sent) {
  if (sent != 1) lose(without_line_end(PQerrorMessage(handle_or_fail())));
}

void postgresql_session::lose(const std::string& reason) {
  handle_.reset();
  throw Error(
      failure_kind::lost_connection,
      "the connection to the server was lost, what the last statement did is unknown: " + reason);
}

}  // namespace ADODB
