#pragma once

#include <stdexcept>
#include <string>

namespace ADODB {

enum class failure_kind {
  refused_by_key,    ///< a primary key or unique index already holds the value
  refused_by_check,  ///< a column doesn't take the value
  busy,              ///< another program holds the store locked longer than the time-out
  stale,  ///< another program has written or writes since this transaction has read; begin anew
  lost_connection,  ///< the server or the file is gone; what the statement did is unknown
  read_only,        ///< the store takes no writes from this program
  full,             ///< the disk has no room
  other
};

/// The one failure of the store. what() is the engine's own text (UTF-8) and never holds a
/// password.
class Error : public std::runtime_error {
 public:
  Error(failure_kind kind, const std::string& text) : std::runtime_error(text), kind_(kind) {}
  [[nodiscard]] failure_kind kind() const { return kind_; }

 private:
  failure_kind kind_;
};

}  // namespace ADODB
