// A full store comes up in the title browser.

#include <unistd.h>

#include <fstream>

#include "browser/replace_form.h"
#include "made_store.h"
#include "ratio.h"

namespace {

using bench::made_store;
using platform::form;
using ta_vorlumine::replaceForm;

struct open_browser {
  explicit open_browser(const made_store& store) {
    form<replaceForm>().conn.Open(store.connect_string());
    form<replaceForm>().window.load();
  }
  ~open_browser() {
    form<replaceForm>().window.unload();
    form<replaceForm>().conn.Close();
  }
};

void bare_level(sqlite3* database, const std::string& parent) {
  std::vector<std::pair<std::string, bool>> children;
  bench::send(database,
              "SELECT * FROM REPLACE WHERE P_REPLACE_NO = " + parent + " ORDER BY REPLACE_NO",
              [&](sqlite3_stmt* row) {
                children.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(row, 0)),
                                      *sqlite3_column_text(row, 2) == 'C');
              });
  for (const auto& [key, is_definition] : children) {
    if (is_definition) {
      bench::send(database,
                  "select replace_type,r_field_id,r_text,r_text_filename,r_image_filename,"
                  "r_mmedia_filename from replace_m where use_type='R' and replace_no=" +
                      key);
    }
    bare_level(database, key);
  }
}

void title_tree(benchmark::State& state) {
  made_store store;
  store.fill_titles(static_cast<int>(state.range(0)));
  const auto bare = store.bare();
  const open_browser browser(store);
  bench::compare(
      state, 0.5, [&] { bare_level(bare.get(), "0"); }, [] { form<replaceForm>().init_form(); });
}
BENCHMARK(title_tree)->Arg(3'200)->Arg(32'000)->Iterations(7)->UseManualTime();

void title_tree_growth(benchmark::State& state) {
  made_store small;
  small.fill_titles(3'200);
  made_store full;
  full.fill_titles(32'000);
  const auto load = [](const made_store& store) {
    const open_browser browser(store);
    return bench::milliseconds([] { form<replaceForm>().init_form(); });
  };
  std::vector<double> times;
  std::vector<double> full_times;
  for (auto _ : state) {
    times.push_back(load(small));
    full_times.push_back(load(full));
    state.SetIterationTime(full_times.back() / 1000);
  }
  state.counters["ratio"] = bench::median(full_times) / bench::median(times);
  state.counters["limit"] = 11;
}
BENCHMARK(title_tree_growth)->Iterations(7)->UseManualTime();

double resident_mib() {
  std::ifstream file("/proc/self/statm");
  double pages = 0;
  file >> pages >> pages;
  return pages * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

void title_tree_memory(benchmark::State& state) {
  made_store empty;
  made_store full;
  full.fill_titles(32'000);
  for (auto _ : state) {
    double before = 0;
    {
      const open_browser browser(empty);
      before = resident_mib();
    }
    const open_browser browser(full);
    state.counters["MiB"] = resident_mib() - before;
  }
  state.counters["limit"] = 64;
}
BENCHMARK(title_tree_memory)->Iterations(1);

}  // namespace
