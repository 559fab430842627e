// A full store comes up in the title browser.

#include <malloc.h>

#include "comparison.h"
#include "opened_forms.h"

namespace {

using bench::engine;
using bench::made_store;
using bench::open_browser;
using bench::way;

constexpr int definitions = 32'000;
constexpr int levels = 11;  // ten of folders, and the definitions in the lowest

void bare_level(bench::bare_connection& bare, way asked, const std::string& parent) {
  static const std::string level =
      "SELECT * FROM REPLACE WHERE P_REPLACE_NO = $1 ORDER BY REPLACE_NO";
  static const std::string values =
      "select replace_type,r_field_id,r_text,r_text_filename,r_image_filename,"
      "r_mmedia_filename from replace_m where use_type='R' and replace_no=$1";
  std::vector<std::pair<std::string, bool>> children;
  bench::look_up(bare, asked, level, parent, [&](const bench::bare_row& row) {
    children.emplace_back(row.text(0), *row.text(2) == 'C');
  });
  for (const auto& [key, is_definition] : children) {
    if (is_definition) bench::look_up(bare, asked, values, key);
    bare_level(bare, asked, key);
  }
}

void title_tree(benchmark::State& state, engine engine, double limit) {
  made_store store(engine);
  store.fill_titles(definitions);
  const open_browser browser(store);
  bench::compare(state, store,
                 {.measured = {[&] { browser.shared.init_form(); }},
                  .reference_is = "the same look-ups as texts",
                  .reference = {[&] { bare_level(store.bare(), way::as_text, "0"); }},
                  .prepared = [&] { bare_level(store.bare(), way::prepared, "0"); },
                  .limit = limit,
                  .most_round_trips = 2 * levels + 10,
                  .most_lateness_ms = 300});
}
BENCHMARK_CAPTURE(title_tree, sqlite, engine::sqlite, 0.5)->Iterations(7);
BENCHMARK_CAPTURE(title_tree, postgresql, engine::postgresql, 0.35)->Iterations(5);

void title_tree_growth(benchmark::State& state) {
  made_store small(engine::sqlite);
  small.fill_titles(definitions / 10);
  made_store full(engine::sqlite);
  full.fill_titles(definitions);
  const auto load = [](const made_store& store) {
    const open_browser browser(store);
    return bench::milliseconds([&] { browser.shared.init_form(); });
  };
  std::vector<double> times;
  std::vector<double> full_times;
  for (auto _ : state) {
    times.push_back(load(small));
    full_times.push_back(load(full));
  }
  state.SetLabel("a tenth of the definitions");
  state.counters["reference_ms"] = bench::least(times);
  state.counters["measured_ms"] = bench::least(full_times);
  state.counters["ratio"] = bench::least(full_times) / bench::least(times);
  state.counters["limit"] = 11;
}
BENCHMARK(title_tree_growth)->Iterations(7);

// What is allocated, and not what is resident: that tells how much benchmarks before this one
// freed.
double allocated_mib() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd) / (1024 * 1024);
}

void title_tree_memory(benchmark::State& state) {
  const made_store empty(engine::sqlite);
  made_store full(engine::sqlite);
  full.fill_titles(definitions);
  for (auto _ : state) {
    double before = 0;
    {
      const open_browser browser(empty);
      before = allocated_mib();
    }
    const open_browser browser(full);
    state.counters["MiB"] = allocated_mib() - before;
  }
  state.counters["limit_MiB"] = 64;
}
BENCHMARK(title_tree_memory)->Iterations(1);

}  // namespace
