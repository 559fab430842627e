#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/connection_string.h"
#include "store/engine.h"
#include "store/postgresql_session.h"
#include "store/statement_shape.h"

namespace ADODB {

/// PostgreSQL behind a connection. A command that meets a lost connection is refused and never
/// repeated, since what it did is unknown; outside a transaction the next command connects anew,
/// inside one only the next after its rollback.
class postgresql_engine : public engine {
 public:
  explicit postgresql_engine(connection_settings settings);

  [[nodiscard]] result execute(std::string_view statement) override;
  void begin(purpose purpose) override;
  void commit() override;

  /// Never fails on a lost connection: the server then takes everything back by itself.
  void rollback() override;

 private:
  [[nodiscard]] postgresql_session& usable_session();
  [[nodiscard]] postgresql_answer answer_to(const statement_shape& shape);
  [[nodiscard]] const std::string& name_of(const statement_shape& shape, const std::string& key);

  connection_settings settings_;
  std::unique_ptr<postgresql_session> session_;
  std::unordered_map<std::string, std::string> names_;  ///< of the prepared statements
  unsigned long prepared_ = 0;
  bool in_transaction_ = false;
};

}  // namespace ADODB
