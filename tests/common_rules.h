#pragma once

#include "test_store.h"

namespace harness {

/// Fills the empty tables with what most tests are about: a field of each kind, and
///
///     1 敬称           氏名 (10)
///                        東（部分一致） (11, lines 1)
///                        以外 (12)
///                          不明 (13), the text 様
///     2 空             without rules; 21 is reserved for its top field
///     3 宛名           a folder
///       4 会社         a folder
///         5 御中       御中 (22), the text 御中
///     30 日付          取引開始日 (30)
///     31 数値          年齢 (31)
///     32 二択          会員 (32)
///     33 新規          氏名 (33)
///
/// The counters are 33 for definitions, 40 for rules, 7 for conditions.
void add_common_rules(test_store& store);

}  // namespace harness
