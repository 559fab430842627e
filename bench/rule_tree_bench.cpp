// A definition of 10,000 rule rows: shown, clicked, copied, given a value.

#include "comparison.h"
#include "opened_forms.h"
#include "values/set_value.h"

namespace {

using bench::bare_row;
using bench::engine;
using bench::made_store;
using bench::way;
using ta_vorlumine::Node;
using ta_vorlumine::set_value;

constexpr int rule_rows = 10'000;

struct full_store : made_store {
  explicit full_store(engine behind) : made_store(behind) { fill_rules(rule_rows); }
};

void bare_tree(bench::bare_connection& bare, way asked) {
  static const std::string field = "select field_name from field where field_id=$1";
  static const std::string lines =
      "select * from replace_cond where replace_cond_no=$1 and replace_no=1";
  std::vector<std::pair<const std::string*, std::string>> look_ups;
  const auto see_row = [&](const bare_row& row) {
    const std::string type = row.text(2);
    if (type == "F") {
      look_ups.emplace_back(&field, row.text(3));
    } else if (type == "C" && row.text(4) != std::string("1")) {
      look_ups.emplace_back(&lines, row.text(5));
    }
  };
  bench::look_up(bare, asked,
                 "select * from replace_m where replace_no=$1 ORDER BY "
                 "P_REPLACE_M_NO,replace_cond_type,replace_m_no",
                 "1", see_row);
  for (const auto& [statement, value] : look_ups) bench::look_up(bare, asked, *statement, value);
}

void rule_tree(benchmark::State& state, engine engine, double limit) {
  const full_store store(engine);
  const bench::open_editor open(store);
  bench::compare(state, store,
                 {.measured = {[&] { open.editor.init_tree(); }},
                  .reference_is = "the same look-ups as texts",
                  .reference = {[&] { bare_tree(store.bare(), way::as_text); }},
                  .prepared = [&] { bare_tree(store.bare(), way::prepared); },
                  .limit = limit,
                  .most_round_trips = 5});
}
BENCHMARK_CAPTURE(rule_tree, sqlite, engine::sqlite, 0.5)->Iterations(9);
BENCHMARK_CAPTURE(rule_tree, postgresql, engine::postgresql, 0.4)->Iterations(9);

void rule_tree_click(benchmark::State& state, engine engine) {
  const full_store store(engine);
  const bench::open_editor open(store);
  const Node node = open.editor.SSTree1.Nodes.Item("5000");
  const auto click = [&](way asked) {
    bench::look_up(store.bare(), asked,
                   "select use_type from replace_m where replace_m_no=$1 and replace_no=1", "5000");
    bench::look_up(store.bare(), asked,
                   "select count(*) from replace_m where p_replace_m_no=$1 and replace_no=1",
                   "5000");
  };
  const auto thousand = [](const auto& work) {
    return [=] {
      for (int i = 0; i < 1000; ++i) work();
    };
  };
  bench::compare(state, store,
                 {.measured = {thousand([&] { open.editor.SSTree1.on_node_click(node); })},
                  .reference_is = "a thousand times the two look-ups of a click as texts",
                  .reference = {thousand([&] { click(way::as_text); })},
                  .prepared = thousand([&] { click(way::prepared); }),
                  .limit = 3,
                  .most_round_trips = 2'000});
}
BENCHMARK_CAPTURE(rule_tree_click, sqlite, engine::sqlite)->Iterations(5);
BENCHMARK_CAPTURE(rule_tree_click, postgresql, engine::postgresql)->Iterations(5);

void value_ok(benchmark::State& state, engine engine) {
  const full_store store(engine);
  const bench::open_editor open(store);
  auto& tree = open.editor.SSTree1;
  const auto store_value = [&] {
    tree.on_node_click(tree.Nodes.Item(tree.Nodes.Count()));
    auto& dialog = platform::form<set_value>();
    dialog.window.load();
    dialog.title_txt.set_text("新しい値");
    dialog.Command1.on_click();
  };
  bench::compare(state, store,
                 {.measured = {store_value},
                  .reference_is = "the tree built by init_tree",
                  .reference = {[&] { open.editor.init_tree(); }},
                  .limit = 1.5,
                  .most_round_trips = 10});
}
BENCHMARK_CAPTURE(value_ok, sqlite, engine::sqlite)->Iterations(9);
BENCHMARK_CAPTURE(value_ok, postgresql, engine::postgresql)->Iterations(9);

std::string quoted(const char* text) {
  return text ? "'" + std::string(text) + "'" : "null";
}

/// The rows of definition 1 in a table, as inserts for definition 2.
std::vector<std::string> inserts(bench::bare_connection& bare, const std::string& table) {
  std::vector<std::string> statements;
  bare.send("SELECT * FROM " + table + " WHERE REPLACE_NO = 1", [&](const bare_row& row) {
    std::string values;
    for (int i = 0; i < row.columns(); ++i) {
      const bool is_definition = row.name(i) == std::string("replace_no");
      values += (i ? "," : "") + (is_definition ? "2" : quoted(row.text(i)));
    }
    statements.push_back("INSERT INTO " + table + " VALUES(" + values + ")");
  });
  return statements;
}

void bare_copy(bench::bare_connection& bare) {
  for (const char* table : {"REPLACE", "REPLACE_COND", "REPLACE_M"})
    for (const std::string& statement : inserts(bare, table)) bare.send(statement);
}

// What the copy reads on its way, and the tree it shows at the end, are not in the reference; on a
// server they are a third of the requests.
void definition_copy(benchmark::State& state, engine engine, double limit) {
  const full_store store(engine);
  const bench::open_connection open(store);
  auto& editor = platform::form<ta_vorlumine::replace_create>();
  open.shared.basAU = "8";
  const auto choose = [&] { open.shared.basNodeKey = "1"; };
  const auto clean = [&] {
    editor.window.unload();
    for (const std::string table : {"replace", "replace_m", "replace_cond"})
      store.bare().send("delete from " + table + " where replace_no > 1");
    store.bare().send("update seqno set replace=1,replace_m=10000,replace_cond=10000");
  };
  bench::compare(state, store,
                 {.measured = {[&] { editor.window.load(); }, choose, clean},
                  .reference_is = "the inserts as texts",
                  .reference = {[&] { bare_copy(store.bare()); }, [] {}, clean},
                  .limit = limit,
                  .most_round_trips = 20});
}
BENCHMARK_CAPTURE(definition_copy, sqlite, engine::sqlite, 1.2)->Iterations(3);
BENCHMARK_CAPTURE(definition_copy, postgresql, engine::postgresql, 0.8)->Iterations(3);

}  // namespace
