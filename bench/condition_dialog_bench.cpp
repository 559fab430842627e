// A text condition of 2,000 lines: opened, checked while typing, stored.

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

#include "comparison.h"
#include "conditions/r_text_cond.h"
#include "opened_forms.h"

namespace {

using bench::engine;
using bench::made_store;
using ta_vorlumine::r_text_cond;

constexpr int lines = 2'000;

/// Answers every message at once.
class answering : public QObject {
 public:
  answering() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* box = qobject_cast<QMessageBox*>(object);
    if (box && event->type() == QEvent::Show) {
      QMetaObject::invokeMethod(box, &QDialog::accept, Qt::QueuedConnection);
    }
    return false;
  }
};

struct full_store : made_store {
  explicit full_store(engine behind) : made_store(behind) { fill_condition(lines); }
};

struct long_condition {
  explicit long_condition(engine behind) : store(behind), open(store) {}

  void open_dialog() {
    auto& editor = open.editor;
    editor.SSTree1.on_node_click(editor.SSTree1.Nodes.Item("2"));
    editor.f_cond_value = 1;
    editor.f_replace_cond_no = 1;
    editor.sno_current = lines + 1;
    editor.f_attr = "T";
    shown.dialog.window.load();
    shown.dialog.load_lines();
  }
  void close_dialog() { shown.dialog.window.unload(); }

  full_store store;
  bench::open_editor open;
  r_text_cond& shown = platform::form<r_text_cond>();
};

void condition_opening(benchmark::State& state, engine engine) {
  long_condition condition(engine);
  bench::bare_connection& bare = condition.store.bare();
  const auto read_lines = [&] {
    bare.send("BEGIN");
    bare.send(
        "select replace_no,replace_cond_no,sno,use_type,s_val,s_method from replace_cond where "
        "replace_no=1 and replace_cond_no=1 and use_type='S'",
        [](const bench::bare_row& row) {
          for (int i = 0; i < 6; ++i) benchmark::DoNotOptimize(row.text(i));
        });
    bare.send("ROLLBACK");
  };
  bench::compare(
      state, condition.store,
      {.measured = {[&] { condition.open_dialog(); }, [] {}, [&] { condition.close_dialog(); }},
       .reference_is = "the lines read in a transaction",
       .reference = {read_lines},
       .limit = 2,
       .most_round_trips = 6});
}
BENCHMARK_CAPTURE(condition_opening, sqlite, engine::sqlite)->Iterations(9);
BENCHMARK_CAPTURE(condition_opening, postgresql, engine::postgresql)->Iterations(9);

void condition_ok(benchmark::State& state, engine engine) {
  long_condition condition(engine);
  const answering user;
  bench::bare_connection& bare = condition.store.bare();
  const auto write_lines = [&] {
    bare.send("BEGIN");
    bare.send("delete from replace_cond where replace_no=1 and replace_cond_no=1");
    for (int sno = 1; sno <= lines; ++sno) bare.send(made_store::condition_line(sno));
    bare.send("COMMIT");
  };
  bench::compare(state, condition.store,
                 {.measured = {[&] { condition.shown.dialog.Command1.on_click(); },
                               [&] { condition.open_dialog(); }},
                  .reference_is = "the lines written as texts in a transaction",
                  .reference = {write_lines},
                  .limit = 1.5,
                  .most_round_trips = 15});
}
BENCHMARK_CAPTURE(condition_ok, sqlite, engine::sqlite)->Iterations(9);
BENCHMARK_CAPTURE(condition_ok, postgresql, engine::postgresql)->Iterations(9);

void condition_row_check(benchmark::State& state) {
  long_condition condition(engine::sqlite);
  condition.open_dialog();
  auto& grid = condition.shown.dialog.fg;
  grid.Row(lines / 2);
  bench::compare(state, condition.store,
                 {.measured = {[&] { grid.on_row_check(); }}, .limit_ms = 5});
  condition.close_dialog();
}
BENCHMARK(condition_row_check)->Iterations(1000);

}  // namespace
