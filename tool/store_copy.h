#pragma once

#include <string>
#include <vector>

#include "tool/progress.h"

namespace rule_store {

/// What there is to say about a copy, a line each (UTF-8).
struct copy_report {
  /// Rows that the target can't hold as they are: the table, the row's keys, the reason. Nothing
  /// was copied unless this is empty.
  std::vector<std::string> unfit;
  /// What faults_of() tells of the source, and now of the target, too.
  std::vector<std::string> faults;
};

/// Copies the five tables of the store that a connection string names to `target`: the path of a
/// file that is made, a connection string of such a file, or one of a store without rows. Reads the
/// source as it is at one moment, while other programs may write, and writes in one transaction,
/// which ends only if the target then reads like the source, cell by cell. Every failure is an
/// ADODB::Error; it leaves the target without rows, and a new file removed.
[[nodiscard]] copy_report copy_store(const std::string& source, const std::string& target,
                                     const progress& tell);

}  // namespace rule_store
