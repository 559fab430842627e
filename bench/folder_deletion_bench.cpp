// A folder of 5,000 definitions goes.

#include "comparison.h"
#include "opened_forms.h"

namespace {

constexpr int definitions = 5'000;

void bare_deletion(bench::bare_connection& bare, const std::string& parent) {
  std::vector<std::string> children;
  bare.send(
      "select replace_no,P_replace_NO,replace_m_no from replace where p_replace_no= " + parent,
      [&](const bench::bare_row& row) { children.emplace_back(row.text(0)); });
  for (const std::string& key : children) {
    bare.send("delete from replace_m where replace_no=" + key);
    bare.send("delete from replace_cond where replace_no=" + key);
    bare_deletion(bare, key);
  }
  bare.send("Delete from replace where replace_no=" + parent);
}

void folder_deletion(benchmark::State& state, bench::engine engine) {
  bench::made_store store(engine);
  const bench::open_connection open(store);
  const auto add = [&] { store.add_folder(1, definitions); };
  bench::compare(state, store,
                 {.measured = {[&] { open.shared.DeleteChild("1"); }, add},
                  .reference_is = "the same statements as texts",
                  .reference = {[&] { bare_deletion(store.bare(), "1"); }, add},
                  .limit = 1.1});
}
BENCHMARK_CAPTURE(folder_deletion, sqlite, bench::engine::sqlite)->Iterations(3);
BENCHMARK_CAPTURE(folder_deletion, postgresql, bench::engine::postgresql)->Iterations(3);

}  // namespace
