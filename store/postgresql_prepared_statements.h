#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/postgresql_values.h"

namespace ADODB {

/// The values of a statement as the server takes them.
[[nodiscard]] std::vector<bound_value> bound_values(const statement& statement);

/// What a session on a PostgreSQL server has prepared.
class postgresql_prepared_statements {
 public:
  /// The name of a statement on the server. It follows from the words and the types of the values
  /// alone, so that even in a session that is shared unnoticed no program runs what another one has
  /// prepared under the same name.
  [[nodiscard]] std::string name_of(const words& text,
                                    const std::vector<bound_value>& values) const;

  [[nodiscard]] bool has(const std::string& name) const { return columns_.contains(name); }
  void add(const std::string& name) { columns_.try_emplace(name); }
  void remove(const std::string& name) { columns_.erase(name); }
  void clear() { columns_.clear(); }
  /// The tables have changed, which makes what is prepared useless: each statement gets another
  /// name.
  void rename_all() { ++generation_; }

  /// The columns of an answer to a statement; all its answers share them.
  [[nodiscard]] column_names columns_of(const std::string& name, const PGresult* answer);

 private:
  std::unordered_map<std::string, column_names> columns_;  ///< of the last answer, by the names
  std::uint64_t generation_ = 0;
};

}  // namespace ADODB
