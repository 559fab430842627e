#pragma once

#include <ostream>

#include "tool/store_rows.h"

namespace rule_store {

enum class key_display { hidden, shown };

/// Writes folders, definitions and rule trees as indented text (UTF-8), made to be compared: with
/// the keys hidden, stores that differ in nothing but their numbers give the same text. Folders and
/// definitions stand in the order of their titles, conditions in that of the rule tree. Rows that
/// no tree reaches are counted at the end.
void print_store(const store_rows& rows, key_display keys, std::ostream& output);

}  // namespace rule_store
