#include "store/connection.h"

#include <utility>

#include "store/connection_string.h"

namespace ADODB {

void Connection::Open(std::string_view connection_string, access access) {
  if (is_open()) throw Error(failure_kind::other, "the connection is already open");
  connection_settings settings = read_connection_string(connection_string);
  settings.opened_for = access;
  settings.while_waiting = while_waiting;
  engine_ = open_engine(settings);
}

void Connection::Close() {
  open_engine_or_fail();
  // The engine closes its database, which rolls back an open transaction.
  engine_.reset();
  in_transaction_ = false;
}

Recordset Connection::Execute(const statement& statement) {
  return Recordset(open_engine_or_fail().execute(statement));
}

Recordset Connection::Execute(std::string_view text) {
  return Recordset(open_engine_or_fail().execute(text));
}

void Connection::ExecuteAll(std::span<const statement> statements,
                            const std::function<void(Recordset)>& take) {
  open_engine_or_fail().execute_all(statements,
                                    [&](result rows) { take(Recordset(std::move(rows))); });
}

std::vector<Recordset> Connection::ExecuteAll(std::span<const statement> statements) {
  std::vector<Recordset> results;
  results.reserve(statements.size());
  ExecuteAll(statements, [&](Recordset rows) { results.push_back(std::move(rows)); });
  return results;
}

void Connection::BeginTrans(purpose purpose) {
  if (in_transaction_) throw Error(failure_kind::other, "a transaction is already open");
  open_engine_or_fail().begin(purpose);
  in_transaction_ = true;
}

void Connection::CommitTrans() {
  transaction_engine_or_fail().commit();
  in_transaction_ = false;
}

void Connection::RollbackTrans() {
  transaction_engine_or_fail().rollback();
  in_transaction_ = false;
}

engine& Connection::open_engine_or_fail() const {
  if (!is_open()) throw Error(failure_kind::other, "the connection is closed");
  return *engine_;
}

engine& Connection::transaction_engine_or_fail() const {
  if (!in_transaction_) throw Error(failure_kind::other, "no transaction is open");
  return open_engine_or_fail();
}

}  // namespace ADODB
