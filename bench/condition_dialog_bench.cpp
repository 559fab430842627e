// A text condition of 2,000 lines: opened, checked while typing, stored.

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

#include "browser/replace_form.h"
#include "conditions/r_text_cond.h"
#include "editor/replace_create.h"
#include "made_store.h"
#include "ratio.h"

namespace {

using bench::send;
using platform::form;
using namespace ta_vorlumine;

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

class long_condition {
 public:
  long_condition() {
    const auto bare = store.bare();
    send(bare.get(), "BEGIN");
    for (const char* statement :
         {"insert into field values('F1','姓','T')",
          "insert into replace values(1,0,'C','長い条件',null,1)",
          "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
          "values(1,1,0,'F','F1')",
          "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,"
          "replace_cond_type,replace_cond_no) values(1,2,1,'C','0',1),(1,3,1,'C','1',null)",
          "update seqno set replace=1,replace_m=3,replace_cond=1"}) {
      send(bare.get(), statement);
    }
    for (int sno = 1; sno <= lines; ++sno) send(bare.get(), insert(sno));
    send(bare.get(), "COMMIT");
    auto& shared = form<replaceForm>();
    shared.conn.Open(store.connect_string());
    shared.basAU = "6";
    shared.basNodeKey = "1";
    shared.f_replace_no = 1;
    form<replace_create>().window.load();
  }
  ~long_condition() {
    form<replace_create>().window.unload();
    form<replaceForm>().window.unload();
    form<replaceForm>().conn.Close();
  }

  static std::string insert(int sno) {
    const std::string number = std::to_string(sno);
    return "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_val,s_method) "
           "values(1,1,'" +
           number + "','S','比較する値" + number + "','1')";
  }

  void open_dialog() {
    auto& editor = form<replace_create>();
    editor.SSTree1.on_node_click(editor.SSTree1.Nodes.Item("2"));
    editor.f_cond_value = 1;
    editor.f_replace_cond_no = 1;
    editor.sno_current = lines + 1;
    editor.f_attr = "T";
    form<r_text_cond>().dialog.window.load();
    form<r_text_cond>().dialog.load_lines();
  }

  bench::made_store store;
};

void condition_opening(benchmark::State& state) {
  long_condition condition;
  const auto bare = condition.store.bare();
  std::vector<double> references;
  std::vector<double> times;
  for (auto _ : state) {
    references.push_back(bench::milliseconds([&] {
      send(bare.get(), "BEGIN");
      send(bare.get(),
           "select replace_no,replace_cond_no,sno,use_type,s_val,s_method from replace_cond where "
           "replace_no=1 and replace_cond_no=1 and use_type='S'",
           [](sqlite3_stmt* row) {
             for (int i = 0; i < 6; ++i) benchmark::DoNotOptimize(sqlite3_column_text(row, i));
           });
      send(bare.get(), "ROLLBACK");
    }));
    times.push_back(bench::milliseconds([&] { condition.open_dialog(); }));
    state.SetIterationTime(times.back() / 1000);
    form<r_text_cond>().dialog.window.unload();
  }
  bench::report(state, 2, references, times);
}
BENCHMARK(condition_opening)->Iterations(9)->UseManualTime();

void condition_ok(benchmark::State& state) {
  long_condition condition;
  const answering user;
  const auto bare = condition.store.bare();
  std::vector<double> references;
  std::vector<double> times;
  for (auto _ : state) {
    references.push_back(bench::milliseconds([&] {
      send(bare.get(), "BEGIN");
      send(bare.get(), "delete from replace_cond where replace_no=1 and replace_cond_no=1");
      for (int sno = 1; sno <= lines; ++sno) send(bare.get(), long_condition::insert(sno));
      send(bare.get(), "COMMIT");
    }));
    condition.open_dialog();
    times.push_back(bench::milliseconds([] { form<r_text_cond>().dialog.Command1.on_click(); }));
    state.SetIterationTime(times.back() / 1000);
  }
  bench::report(state, 1.5, references, times);
}
BENCHMARK(condition_ok)->Iterations(9)->UseManualTime();

void condition_row_check(benchmark::State& state) {
  long_condition condition;
  condition.open_dialog();
  form<r_text_cond>().dialog.fg.Row(lines / 2);
  for (auto _ : state) form<r_text_cond>().dialog.fg.on_row_check();
  form<r_text_cond>().dialog.window.unload();
}
BENCHMARK(condition_row_check)->Unit(benchmark::kMillisecond);

}  // namespace
