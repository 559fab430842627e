#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace rule_store {

/// What there is to say about a copy, a line each (UTF-8).
struct copy_report {
  /// Rows that the target can't hold as they are: the table, the row's keys, the reason. Nothing
  /// was copied unless this is empty.
  std::vector<std::string> unfit;
  /// What faults_of() tells of the source, and now of the target, too.
  std::vector<std::string> faults;
};

/// Hears how many rows of how many have been copied so far.
using copy_progress = std::function<void(std::size_t done, std::size_t all)>;

/// Copies the five tables of the store that a connection string names to `target`: the path of a
/// file that is made, a connection string of such a file, or one of a store without rows. Reads the
/// source as it is at one moment, while other programs may write, and writes in one transaction,
/// which ends only if the target then reads like the source, cell by cell. Every failure is an
/// ADODB::Error; it leaves the target without rows, and a new file removed.
[[nodiscard]] copy_report copy_store(const std::string& source, const std::string& target,
                                     const copy_progress& tell);

}  // namespace rule_store
