#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_set>
#include <vector>

#include "store/connection_string.h"
#include "store/engine.h"
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
  [[nodiscard]] postgresql_answer answer_to(postgresql_session& session, const words& text,
                                            const std::vector<bound_value>& values);
  [[nodiscard]] std::string prepared(const words& text, const std::vector<bound_value>& values);

  connection_settings settings_;
  std::unique_ptr<postgresql_session> session_;
  std::unordered_set<std::string> prepared_;  ///< names of the session's prepared statements
  /// Part of the names: counted up when a changed table makes prepared statements useless.
  std::uint64_t generation_ = 0;
  bool in_transaction_ = false;
};

}  // namespace ADODB
