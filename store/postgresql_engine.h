#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <type_traits>

#include "store/connection_string.h"
#include "store/engine.h"
#include "store/postgresql_prepared_statements.h"
#include "store/postgresql_session.h"

namespace ADODB {

/// PostgreSQL behind a connection. Outside a transaction a command that finds the connection lost
/// connects anew. One that loses it under way is sent again if it only looks something up or begins
/// a transaction; any other is refused, since what it did is unknown. Inside a transaction all are
/// refused up to the rollback. A server that gave no answer in time is not asked twice.
class postgresql_engine : public engine {
 public:
  explicit postgresql_engine(connection_settings settings);

  [[nodiscard]] result execute(const statement& statement) override;
  [[nodiscard]] result execute(std::string_view text) override;

  /// In one round trip inside a transaction, and outside one if they all only look something up;
  /// else one by one.
  void execute_all(std::span<const statement> statements, const result_taker& take) override;
  void begin(purpose purpose) override;
  void commit() override;

  /// Doesn't fail on a lost connection: the server then rolls back by itself.
  void rollback() override;

 private:
  [[nodiscard]] postgresql_session& usable_session();
  void connect_anew();
  template <class Request>
  std::invoke_result_t<Request, postgresql_session&> sent_again_if_lost(bool changes_nothing,
                                                                        const Request& request);
  void run(std::span<const statement> statements, const result_taker& take);
  [[nodiscard]] bool mend_names(const PGresult* failure, const statement& refused);

  connection_settings settings_;
  std::unique_ptr<postgresql_session> session_;
  postgresql_prepared_statements prepared_;  ///< of the session
  bool in_transaction_ = false;
};

}  // namespace ADODB
