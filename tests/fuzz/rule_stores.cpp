#include <sstream>

#include "strange_rows.h"
#include "tool/copied_tables.h"
#include "tool/store_check.h"
#include "tool/store_json.h"
#include "tool/store_print.h"
#include "tool/store_repair.h"

/// What rule_store does with a store, which no row may crash or keep for ever.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider choices(data, size);
  harness::test_store store;
  add_strange_rows(store, choices);
  const std::string place = store.connect_string();
  std::ostringstream text;
  try {
    rule_store::print_store(rule_store::read_store(place), rule_store::key_display::shown, text);
    rule_store::print_json(rule_store::read_rows(place, rule_store::untold), text);
    rule_store::repair_store(
        place, [](const auto&) {}, rule_store::untold);
    static_cast<void>(rule_store::faults_of(rule_store::read_store(place)));
  } catch (const ADODB::Error&) {
    return 0;
  }
  return 0;
}
