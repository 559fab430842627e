#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "store/engine.h"
#include "store/error.h"
#include "store/recordset.h"

namespace ADODB {

/// One connection to a rule store. Used by one thread at a time. Every failure is an Error.
class Connection {
 public:
  /// Shows the user that a command waits for a server or a lock. To be set before Open.
  wait_display while_waiting;

  /// Opens the store that the connection string names. The store must exist: nothing is created.
  /// Failing leaves the connection closed, and a later Open works.
  void Open(std::string_view connection_string, access access = access::writing);

  /// Ends the connection, an open transaction by rolling it back. Closing a closed one is an Error.
  void Close();
  [[nodiscard]] bool is_open() const { return engine_ != nullptr; }

  /// Runs one statement. A select gives its rows, any other statement an empty record set. A bare
  /// text must not hold anything that a user typed: values belong into the places of a statement.
  Recordset Execute(const statement& statement);
  Recordset Execute(std::string_view text);

  /// Runs many statements in order, at the cost of one if they all are in a transaction or only
  /// look something up, and hands the result of each to `take`, which must not use this connection.
  /// The first failure ends them and is raised: results before it have been handed over, no
  /// statement behind it has been run. Outside a transaction each statement stands by itself.
  void ExecuteAll(std::span<const statement> statements,
                  const std::function<void(Recordset)>& take);
  /// The same for whoever needs all results or none.
  std::vector<Recordset> ExecuteAll(std::span<const statement> statements);

  /// One transaction at a time; statements inside see its work.
  void BeginTrans(purpose purpose = purpose::looking);
  void CommitTrans();
  void RollbackTrans();
  [[nodiscard]] bool in_transaction() const { return in_transaction_; }

 private:
  engine& open_engine_or_fail() const;
  engine& transaction_engine_or_fail() const;

  std::unique_ptr<engine> engine_;
  bool in_transaction_ = false;
};

}  // namespace ADODB
