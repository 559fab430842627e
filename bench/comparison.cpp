#include "comparison.h"

#include <algorithm>
#include <chrono>

#include "counting_proxy.h"
#include "opened_forms.h"
#include "store/connection_string.h"

namespace bench {
namespace {

double time_of(const work& work) {
  work.before();
  const double time = milliseconds(work.run);
  work.after();
  return time;
}

/// Meanwhile what the forms send takes a long way.
void run_at_a_distance(const work& work, const made_store& store, benchmark::State& state) {
  auto settings = ADODB::read_connection_string(store.connect_string()).values;
  const counting_proxy proxy(settings.at("server"), std::chrono::milliseconds(1));
  auto& connection = platform::form<ta_vorlumine::replaceForm>().conn;
  connection.Close();
  connection.Open(harness::server_connect_string(
      {{"database", settings.at("database")}, {"server", proxy.folder().string()}}));
  work.before();
  const std::size_t before = proxy.round_trips();
  state.counters["distant_ms"] = milliseconds(work.run);
  state.counters["round_trips"] = static_cast<double>(proxy.round_trips() - before);
  work.after();
  connection.Close();
  connection.Open(store.connect_string());
}

}  // namespace

double milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double least(const std::vector<double>& times) {
  return *std::ranges::min_element(times);
}

void compare(benchmark::State& state, const made_store& store, const comparison& works) {
  std::vector<double> references;
  std::vector<double> prepared;
  std::vector<double> times;
  for (auto _ : state) {
    if (works.reference.run) references.push_back(time_of(works.reference));
    if (works.prepared) prepared.push_back(milliseconds(works.prepared));
    times.push_back(time_of(works.measured));
  }
  state.SetLabel(works.reference_is);
  auto& figures = state.counters;
  figures["measured_ms"] = least(times);
  if (works.limit_ms > 0) figures["limit_ms"] = works.limit_ms;
  if (works.limit > 0) figures["limit"] = works.limit;
  if (works.reference.run) {
    figures["reference_ms"] = least(references);
    figures["ratio"] = least(times) / least(references);
  }
  if (works.prepared) {
    figures["prepared_ms"] = least(prepared);
    figures["prepared_ratio"] = least(times) / least(prepared);
  }
  if (!store.is_on_server()) return;
  run_at_a_distance(works.measured, store, state);
  figures["lateness_ms"] = figures["distant_ms"] - figures["measured_ms"];
  if (works.most_round_trips > 0) figures["limit_round_trips"] = works.most_round_trips;
  if (works.most_lateness_ms > 0) figures["limit_lateness_ms"] = works.most_lateness_ms;
}

}  // namespace bench
