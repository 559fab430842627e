// A definition of 10,000 rule rows: shown, clicked, copied, given a value.

#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "made_store.h"
#include "ratio.h"
#include "values/set_value.h"

namespace {

using bench::made_store;
using bench::send;
using platform::form;
using namespace ta_vorlumine;

constexpr int rule_rows = 10'000;

std::string column(sqlite3_stmt* row, int number) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, number));
  return text ? text : "";
}

/// The editor on definition 1 of a store, its window made but not run.
struct open_editor {
  explicit open_editor(const made_store& store) {
    auto& shared = form<replaceForm>();
    shared.conn.Open(store.connect_string());
    shared.basAU = "6";
    shared.basNodeKey = "1";
    shared.f_replace_no = 1;
    form<replace_create>().window.load();
  }
  ~open_editor() {
    form<replace_create>().window.unload();
    form<replaceForm>().window.unload();
    form<replaceForm>().conn.Close();
  }
};

void bare_tree(sqlite3* database) {
  std::vector<std::string> look_ups;
  send(database,
       "select * from replace_m where replace_no=1 ORDER BY "
       "P_REPLACE_M_NO,replace_cond_type,replace_m_no",
       [&](sqlite3_stmt* row) {
         const std::string type = column(row, 2);
         if (type == "F") {
           look_ups.push_back("select field_name from field where field_id='" + column(row, 3) +
                              "'");
         } else if (type == "C" && column(row, 4) != "1") {
           look_ups.push_back("select * from replace_cond where replace_cond_no=" + column(row, 5) +
                              " and replace_no=1");
         }
       });
  for (const std::string& statement : look_ups) send(database, statement);
}

void rule_tree(benchmark::State& state) {
  made_store store;
  store.fill_rules(rule_rows);
  const auto bare = store.bare();
  const open_editor editor(store);
  bench::compare(
      state, 0.5, [&] { bare_tree(bare.get()); }, [] { form<replace_create>().init_tree(); });
}
BENCHMARK(rule_tree)->Iterations(9)->UseManualTime();

void rule_tree_click(benchmark::State& state) {
  made_store store;
  store.fill_rules(rule_rows);
  const auto bare = store.bare();
  const open_editor editor(store);
  const Node node = form<replace_create>().SSTree1.Nodes.Item("5000");
  const auto thousand = [](const auto& work) {
    for (int i = 0; i < 1000; ++i) work();
  };
  bench::compare(
      state, 3,
      [&] {
        thousand([&] {
          send(bare.get(),
               "select use_type from replace_m where replace_m_no=5000 and replace_no=1");
          send(bare.get(),
               "select count(*) from replace_m where p_replace_m_no=5000 and replace_no=1");
        });
      },
      [&] { thousand([&] { form<replace_create>().SSTree1.on_node_click(node); }); });
}
BENCHMARK(rule_tree_click)->Iterations(5)->UseManualTime();

void value_ok(benchmark::State& state) {
  made_store store;
  store.fill_rules(rule_rows);
  const open_editor editor(store);
  bench::compare(
      state, 1.5, [] { form<replace_create>().init_tree(); },
      [] {
        const Node value =
            form<replace_create>().SSTree1.Nodes.Item(form<replace_create>().SSTree1.Nodes.Count());
        form<replace_create>().SSTree1.on_node_click(value);
        form<set_value>().window.load();
        form<set_value>().title_txt.set_text("新しい値");
        form<set_value>().Command1.on_click();
      });
}
BENCHMARK(value_ok)->Iterations(9)->UseManualTime();

/// The statements of a copy in which only the numbers move.
std::vector<std::string> copy_statements(sqlite3* database, int definition) {
  std::vector<std::string> statements;
  const std::string no = std::to_string(definition);
  const auto as_inserts = [&](const std::string& table, const std::string& select) {
    send(database, select, [&](sqlite3_stmt* row) {
      std::string values;
      for (int i = 0; i < sqlite3_column_count(row); ++i) {
        const bool is_definition = std::string(sqlite3_column_name(row, i)) == "replace_no";
        const bool is_null = sqlite3_column_type(row, i) == SQLITE_NULL;
        values += (i ? "," : "") + (is_definition ? no
                                    : is_null     ? std::string("null")
                                                  : "'" + column(row, i) + "'");
      }
      statements.push_back("INSERT INTO " + table + " VALUES(" + values + ")");
    });
  };
  as_inserts("REPLACE", "SELECT * FROM REPLACE WHERE REPLACE_NO = 1");
  as_inserts("REPLACE_COND", "SELECT * FROM REPLACE_COND WHERE REPLACE_NO = 1");
  as_inserts("REPLACE_M", "SELECT * FROM REPLACE_M WHERE REPLACE_NO = 1");
  return statements;
}

void definition_copy(benchmark::State& state) {
  made_store store;
  store.fill_rules(rule_rows);
  const auto bare = store.bare();
  form<replaceForm>().conn.Open(store.connect_string());
  form<replaceForm>().basAU = "8";
  const auto clean = [&] {
    for (const char* table : {"replace", "replace_m", "replace_cond"}) {
      send(bare.get(), std::string("delete from ") + table + " where replace_no > 1");
    }
    send(bare.get(), "update seqno set replace=1,replace_m=10000,replace_cond=10000");
  };
  bench::compare(
      state, 1.2,
      [&] {
        for (const std::string& statement : copy_statements(bare.get(), 2)) {
          send(bare.get(), statement);
        }
        clean();
      },
      [&] {
        form<replaceForm>().basNodeKey = "1";
        form<replace_create>().window.load();
        clean();
        form<replace_create>().window.unload();
      });
  form<replaceForm>().window.unload();
  form<replaceForm>().conn.Close();
}
BENCHMARK(definition_copy)->Iterations(3)->UseManualTime();

}  // namespace
