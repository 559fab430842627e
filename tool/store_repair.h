#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tool/progress.h"

namespace rule_store {

struct repair_result {
  std::vector<std::string> mended;  ///< what was done, a line each (UTF-8)
  std::vector<std::string> faults;  ///< what is left to people, as faults_of() tells it
};

/// Mends what no window shows, in one transaction: brings folders and definitions whose folder is
/// gone back under the root, removes rule rows without a definition or a parent, with all below
/// them, and lines of no condition, and raises counters that lag. Calls `report` before the end of
/// the transaction: if it raises, nothing has changed. Every failure is an ADODB::Error.
void repair_store(const std::string& connect_string,
                  const std::function<void(const repair_result&)>& report, const progress& tell);

}  // namespace rule_store
