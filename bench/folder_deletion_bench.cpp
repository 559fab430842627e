// A folder of 5,000 definitions goes.

#include "browser/replace_form.h"
#include "made_store.h"
#include "ratio.h"

namespace {

using bench::send;
using platform::form;
using ta_vorlumine::replaceForm;

constexpr int definitions = 5'000;

void bare_deletion(sqlite3* database, const std::string& parent) {
  std::vector<std::string> children;
  send(database,
       "select replace_no,P_replace_NO,replace_m_no from replace where p_replace_no= " + parent,
       [&](sqlite3_stmt* row) {
         children.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(row, 0)));
       });
  for (const std::string& key : children) {
    send(database, "delete from replace_m where replace_no=" + key);
    send(database, "delete from replace_cond where replace_no=" + key);
    bare_deletion(database, key);
  }
  send(database, "Delete from replace where replace_no=" + parent);
}

void folder_deletion(benchmark::State& state) {
  bench::made_store store;
  const auto bare = store.bare();
  form<replaceForm>().conn.Open(store.connect_string());
  std::vector<double> references;
  std::vector<double> times;
  for (auto _ : state) {
    store.add_folder(1, definitions);
    references.push_back(bench::milliseconds([&] { bare_deletion(bare.get(), "1"); }));
    store.add_folder(1, definitions);
    times.push_back(bench::milliseconds([] { form<replaceForm>().DeleteChild("1"); }));
    state.SetIterationTime(times.back() / 1000);
  }
  form<replaceForm>().conn.Close();
  bench::report(state, 1.1, references, times);
}
BENCHMARK(folder_deletion)->Iterations(3)->UseManualTime();

}  // namespace
