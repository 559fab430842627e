#include <QApplication>
#include <cstdlib>

#include "random_user.h"
#include "strange_rows.h"

// NOLINTNEXTLINE(readability-non-const-parameter): so libFuzzer declares it
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  // Never deleted: the toolkit's devices would outlive the plugin that they come from.
  new QApplication(*argc, *argv);
  return 0;
}

/// A user in the windows over a store that no program of ours would write.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider choices(data, size);
  const auto seed = choices.ConsumeIntegral<std::uint64_t>();
  harness::test_store store;
  add_strange_rows(store, choices);
  harness::random_user user(seed);
  user.reads_anything = true;
  user.walk(store.connect_string(), 60);
  return 0;
}
