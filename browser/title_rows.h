#pragma once

#include <exception>
#include <string>
#include <unordered_map>
#include <vector>

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// What the title tree shows, read from the store level by level: all look-ups of a level go
/// together, so that a level costs a server one round trip.
class title_rows {
 public:
  /// Reads all that hangs below the root. A refused look-up is raised only by whoever asks for what
  /// it was to give; a store that is lost, or that another program keeps locked, ends the reading.
  explicit title_rows(ADODB::Connection& conn);

  /// The rows below the row `parent`, or below the root, 0.
  [[nodiscard]] ADODB::Recordset children(row_key parent) const;

  /// The picture of a definition, which tells what kind its values are; empty if it was not read.
  [[nodiscard]] std::string picture(row_key definition) const;

  /// Why the reading ended before its time, empty if it did not.
  [[nodiscard]] const std::string& ended_by() const { return ended_by_; }

 private:
  enum class subject { values, children };
  struct look_up {
    subject about;
    row_key row;
    row_key parent;  ///< of the row
  };
  struct findings {
    ADODB::Recordset children;
    const char* picture = "";
    std::exception_ptr refusal;  ///< of the look-up that this row has failed at
    subject refused = subject::children;
  };

  void read_level(ADODB::Connection& conn);
  void take(const look_up& asked, const ADODB::Recordset& rows);
  void add_look_ups(ADODB::Recordset rows, row_key parent);
  void refuse(const look_up& asked);
  [[nodiscard]] const findings* found_for(row_key row, subject about) const;

  std::unordered_map<row_key, findings> found_;
  std::vector<look_up> level_;       ///< still to be asked
  std::vector<look_up> next_level_;  ///< what its answers lead to
  std::string ended_by_;
};

}  // namespace ta_vorlumine
