#include "store/postgresql_session.h"

#include <poll.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <utility>

#include "store/error.h"

namespace ADODB {
namespace {

using std::chrono::steady_clock;

// A wait for a lock ends after 5 seconds (lock_timeout below), and no statement of the program
// computes for long: a server that says nothing for 30 seconds hangs, or can't be reached any more.
constexpr std::chrono::seconds answer_timeout(30);

// Several selects have no ORDER BY, and their rows are shown in the order of the index that finds
// them. Sequential scans, bitmap scans and parallel workers give another order, so the planner is
// kept from them. Where it has no other way it takes one of them at a penalty cost, and that cost
// would trigger JIT compilation, which takes milliseconds: hence jit=off.
constexpr auto session_settings =
    "SET lock_timeout='5s'; SET standard_conforming_strings=on; SET enable_seqscan=off;"
    "SET enable_bitmapscan=off; SET max_parallel_workers_per_gather=0; SET jit=off";

std::string without_line_end(std::string text) {
  text.erase(text.find_last_not_of(" \n") + 1);
  return text;
}

struct option {
  const char* keyword;
  const char* key;  ///< of the connection string
};
constexpr std::array<option, 6> given_options = {{{"host", "server"},
                                                  {"port", "port"},
                                                  {"dbname", "database"},
                                                  {"user", "uid"},
                                                  {"password", "pwd"},
                                                  {"sslmode", "sslmode"}}};
constexpr std::array<std::pair<const char*, const char*>, 7> fixed_options = {
    {{"client_encoding", "UTF8"},
     {"application_name", "ta_vorlumine"},
     {"connect_timeout", "10"},
     {"tcp_user_timeout", "20000"},
     {"keepalives_idle", "10"},
     {"keepalives_interval", "5"},
     {"keepalives_count", "2"}}};

PGconn* connect(const connection_settings& settings) {
  std::vector<const char*> keywords;
  std::vector<const char*> values;
  for (const auto& [keyword, value] : fixed_options) {
    keywords.push_back(keyword);
    values.push_back(value);
  }
  // A server that can only be read is refused for writing, as such a file is.
  if (settings.opened_for == access::writing) {
    keywords.push_back("target_session_attrs");
    values.push_back("read-write");
  }
  for (const auto& [keyword, key] : given_options) {
    const auto found = settings.values.find(key);
    if (found == settings.values.end()) continue;
    keywords.push_back(keyword);
    values.push_back(found->second.c_str());
  }
  keywords.push_back(nullptr);
  values.push_back(nullptr);
  // The 0 keeps libpq from reading a database name with a "=" in it as a connection string.
  return PQconnectdbParams(keywords.data(), values.data(), 0);
}

std::string_view field_of(const PGresult* answer, int field) {
  const char* const text = PQresultErrorField(answer, field);
  return text ? text : "";
}

bool is_failure(const PGresult* answer) {
  const ExecStatusType status = PQresultStatus(answer);
  return status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK;
}

bool is_copy(const PGresult* answer) {
  const ExecStatusType status = PQresultStatus(answer);
  return status == PGRES_COPY_IN || status == PGRES_COPY_OUT || status == PGRES_COPY_BOTH;
}

bool tells_loss(std::string_view state) {
  constexpr std::string_view protocol_violation = "08P01";  // ends a statement, not the session
  return state.starts_with("57P") || (state.starts_with("08") && state != protocol_violation);
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

}  // namespace

postgresql_session::postgresql_session(const connection_settings& settings)
    : handle_(connect(settings)) {
  if (PQstatus(handle_.get()) != CONNECTION_OK)
    throw Error(failure_kind::other, without_line_end(PQerrorMessage(handle_.get())));
  if (const auto given = settings.values.find("pwd"); given != settings.values.end())
    password_ = given->second;
  PQsetNoticeReceiver(
      handle_.get(), [](void*, const PGresult*) {}, nullptr);
  PQsetnonblocking(handle_.get(), 1);
  run(session_settings);
}

void postgresql_session::prepare(const std::string& name, const std::string& text,
                                 const std::vector<bound_value>& values) {
  std::vector<Oid> types;
  types.reserve(values.size());
  for (const bound_value& value : values) types.push_back(value.type);
  const postgresql_answer answer = answer_to(PQsendPrepare(
      handle_or_fail(), name.c_str(), text.c_str(), static_cast<int>(types.size()), types.data()));
  constexpr std::string_view name_is_taken = "42P05";
  if (field_of(answer.get(), PG_DIAG_SQLSTATE) != name_is_taken) check(answer.get());
}

postgresql_answer postgresql_session::execute(const std::string& name,
                                              const std::vector<bound_value>& values) {
  std::vector<const char*> texts;
  texts.reserve(values.size());
  for (const bound_value& value : values)
    texts.push_back(value.text ? value.text->c_str() : nullptr);
  return answer_to(PQsendQueryPrepared(handle_or_fail(), name.c_str(),
                                       static_cast<int>(texts.size()), texts.data(), nullptr,
                                       nullptr, 0));
}

postgresql_answer postgresql_session::execute(const std::string& text) {
  postgresql_answer answer = answer_to(
      PQsendQueryParams(handle_or_fail(), text.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0));
  check(answer.get());
  return answer;
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
  if (PQstatus(handle_.get()) != CONNECTION_OK || tells_loss(state)) lose(text);
  const std::string_view detail = field_of(answer, PG_DIAG_MESSAGE_DETAIL);
  const bool tells_password = !password_.empty() && detail.find(password_) != detail.npos;
  if (!detail.empty() && !tells_password) text.append("\n").append(detail);
  throw Error(kind_of(state), text);
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
  return handle_.get();
}

/// Waits for the whole answer to what was just sent, and gives its first failure or else its last
/// rows.
postgresql_answer postgresql_session::answer_to(int sent) {
  if (sent != 1) lose(without_line_end(PQerrorMessage(handle_.get())));
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

/// Sends what libpq has not sent yet, and waits until PQgetResult can be called without blocking:
/// it then gives the next part of the answer, or the failure of the connection.
void postgresql_session::wait() {
  const auto deadline = steady_clock::now() + answer_timeout;
  while (true) {
    const int unsent = PQflush(handle_.get());
    if (unsent < 0 || (unsent == 0 && !PQisBusy(handle_.get()))) return;
    pollfd socket{PQsocket(handle_.get()), static_cast<short>(unsent ? POLLIN | POLLOUT : POLLIN),
                  0};
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now()).count();
    const int ready = left > 0 ? ::poll(&socket, 1, static_cast<int>(left)) : 0;
    if (ready == 0) lose("the server gives no answer");
    if (ready < 0 && errno == EINTR) continue;
    if (PQconsumeInput(handle_.get()) == 0) return;
  }
}

void postgresql_session::lose(const std::string& reason) {
  handle_.reset();
  throw Error(
      failure_kind::lost_connection,
      "the connection to the server was lost, what the last statement did is unknown: " + reason);
}

}  // namespace ADODB
