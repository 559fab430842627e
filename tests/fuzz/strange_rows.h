#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include "test_store.h"

namespace harness {

/// Fills a store with rows that the checks of its tables may refuse: keys that are missing, meet
/// or lead in circles, codes that nobody knows, texts where numbers belong, bytes that are no text.
void add_strange_rows(test_store& store, FuzzedDataProvider& choices);

}  // namespace harness
