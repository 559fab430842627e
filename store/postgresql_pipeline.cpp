#include "store/postgresql_pipeline.h"

#include <utility>

#include "store/error.h"

namespace ADODB {
namespace {

// What the socket doesn't take libpq keeps. It is asked about that after so many statements only,
// since to answer it sends all that it has, which is a call of the system each time.
constexpr int statements_at_once = 64;

}  // namespace

postgresql_pipeline::postgresql_pipeline(postgresql_session& session,
                                         postgresql_prepared_statements& prepared,
                                         std::span<const statement> statements,
                                         const result_taker& take)
    : session_(session), prepared_(prepared), statements_(statements), take_(take) {}

postgresql_answer postgresql_pipeline::run() {
  PQenterPipelineMode(session_.handle_or_fail());
  if (session_.is_pooled() && !session_.has_transaction()) send_settings();
  while (!is_over_) {
    send_some();
    session_.wait(!is_closed_);
    read_some();
  }
  PQexitPipelineMode(session_.handle_or_fail());
  if (raised_) std::rethrow_exception(raised_);
  if (!refusal_ && unsendable_) std::rethrow_exception(unsendable_);
  return std::move(refusal_);
}

// The pool lends a session for this pipeline only, and nobody has set anything there.
void postgresql_pipeline::send_settings() {
  session_.require_sent(session_.send(session_.settings_.of_transaction(), {}));
  awaited_.push_back({{}, awaited_answer::to_settings});
}

bool postgresql_pipeline::has_more() const {
  return sent_ < statements_.size() && !refusal_ && !unsendable_ && !raised_;
}

void postgresql_pipeline::send_some() {
  // A server that waits until its answers are read takes nothing.
  if (is_closed_ || PQflush(session_.handle_or_fail()) > 0) return;
  for (int i = 0; i < statements_at_once && has_more(); ++i) send_next();
  if (has_more()) return;
  session_.require_sent(PQpipelineSync(session_.handle_or_fail()));
  is_closed_ = true;
}

void postgresql_pipeline::send_next() {
  try {
    send(statements_[sent_], bound_values(statements_[sent_]));
    ++sent_;
  } catch (const Error& failure) {
    if (session_.is_lost()) throw;
    unsendable_ = std::current_exception();
  }
}

void postgresql_pipeline::send(const statement& next, const std::vector<bound_value>& values) {
  const std::string name = prepared_.name_of(next.text, values);
  const auto text = [&] { return next.text.with_parameters(parameter_form::numbered); };
  if (session_.is_pooled()) {
    session_.require_sent(session_.send(text(), values));
  } else {
    if (!prepared_.has(name) && announced_.insert(name).second) {
      session_.require_sent(session_.send_preparation(name, text(), values));
      awaited_.push_back({name, awaited_answer::to_preparation});
    }
    session_.require_sent(session_.send_prepared(name, values));
  }
  awaited_.push_back({name, awaited_answer::to_statement});
}

void postgresql_pipeline::read_some() {
  PGconn* const handle = session_.handle_or_fail();
  if (!is_closed_) PQconsumeInput(handle);
  // The last answer of all is the one to the end of the pipeline.
  while (!is_over_ && (is_closed_ || !awaited_.empty()) && PQisBusy(handle) == 0) {
    if (postgresql_answer answer{PQgetResult(handle)}) read(std::move(answer));
  }
}

void postgresql_pipeline::read(postgresql_answer answer) {
  const ExecStatusType status = PQresultStatus(answer.get());
  is_over_ = status == PGRES_PIPELINE_SYNC;
  if (is_over_ || status == PGRES_PIPELINE_ABORTED) return;
  if (is_failure(answer.get())) {
    if (!refusal_) refusal_ = std::move(answer);
    // After a lost connection nothing more comes.
    if (PQstatus(session_.handle_or_fail()) != CONNECTION_OK) session_.check(refusal_.get());
    return;
  }
  const awaited_answer awaited = std::move(awaited_.front());
  awaited_.pop_front();
  if (awaited.what == awaited_answer::to_preparation) prepared_.add(awaited.name);
  if (awaited.what == awaited_answer::to_statement && !raised_)
    hand_over(awaited.name, answer.get());
}

// The session is of no use before all answers have been read: until then the exception waits.
void postgresql_pipeline::hand_over(const std::string& name, const PGresult* answer) {
  try {
    take_(rows_of(answer, prepared_.columns_of(name, answer)));
  } catch (...) {
    raised_ = std::current_exception();
  }
}

}  // namespace ADODB
