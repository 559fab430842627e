// A folder of 5,000 definitions goes.

#include "comparison.h"
#include "opened_forms.h"
#include "rules/transaction.h"

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

void folder_deletion(benchmark::State& state, bench::engine engine, double limit) {
  bench::made_store store(engine);
  const bench::open_connection open(store);
  const auto add = [&] { store.add_folder(1, definitions); };
  const auto delete_folder = [&] {
    ta_vorlumine::in_transaction(open.shared.conn, [&] { open.shared.DeleteChild("1"); });
  };
  const auto delete_bare = [&] {
    store.bare().send("BEGIN");
    bare_deletion(store.bare(), "1");
    store.bare().send("COMMIT");
  };
  bench::compare(state, store,
                 {.measured = {delete_folder, add},
                  .reference_is = "the same statements as texts in a transaction",
                  .reference = {delete_bare, add},
                  .limit = limit,
                  .most_round_trips = 2 + 10});
}
BENCHMARK_CAPTURE(folder_deletion, sqlite, bench::engine::sqlite, 1.1)->Iterations(3);
BENCHMARK_CAPTURE(folder_deletion, postgresql, bench::engine::postgresql, 0.5)->Iterations(3);

}  // namespace
