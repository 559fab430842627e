#pragma once

#include <string>
#include <vector>

#include "tool/store_rows.h"

namespace rule_store {

/// What breaks the shape of a store, a line each (UTF-8): the table and the row's numbers, then the
/// fault. Empty for a store in order.
[[nodiscard]] std::vector<std::string> faults_of(const store_rows& rows);

}  // namespace rule_store
