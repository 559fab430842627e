#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "store/connection_string.h"
#include "store/engine.h"
#include "store/postgresql_session.h"

namespace ADODB {

/// PostgreSQL behind a connection. A command that meets a lost connection is refused and never
/// repeated, since what it did is unknown; outside a transaction the next command connects anew,
/// inside one only the next after its rollback.
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
  [[nodiscard]] postgresql_answer answer_to(const words& text,
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
