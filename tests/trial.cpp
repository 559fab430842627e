#include "trial.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "ta_vorlumine/replace_class.h"
#include "walks.h"

namespace harness {
namespace {

static void leave(const std::string& window) {
  if (window == "replaceForm") return press("close");
  if (window == "replace_create") return press("exit");
  press(window == "replaceFolder" ? "Command3" : "Command2");
}

}  // namespace

trial::trial(std::optional<test_store>& store, const trouble& trouble) {
  if (!store || !on_server()) store.emplace();
  for (const char* table : {"replace", "replace_m", "replace_cond", "field"})
    store->run(std::string("delete from ") + table);
  store->run_all(swept_rows);
  store_ = &*store;
  before = content();
  faults_ = trouble.make(*store);
}

void trial::play(const swept_command& command, int number, bool is_patient) {
  is_patient_ = is_patient;
  QTimer clock;
  const auto look = [&] { tick(command, number); };
  QObject::connect(&clock, &QTimer::timeout, &clock, look, Qt::QueuedConnection);
  clock.start(0);
  ta_vorlumine::replaceClass editor;
  editor.CONNECT_STRING = faults_->connect_string(*store_);
  editor.replace_show();
  failed = faults_->failed();
  was_reached = number <= faults_->seen();
  faults_.reset();
  after = content();
  shape = shape_faults(store_->connect_string());
  // A counter that stays behind heals at the next command.
  std::erase_if(shape, [](const std::string& fault) { return fault.starts_with("seqno"); });
}

trial::rows trial::content() {
  rows all;
  for (const char* table : {"replace", "replace_m", "replace_cond"}) {
    for (const std::string& row : store_->rows(std::string("select * from ") + table))
      all.push_back(std::string(table) + " " + row);
  }
  // A new definition stands, without a title, before its editor opens.
  std::erase_if(all, [](const std::string& row) { return row.ends_with("|3|C| |null|41"); });
  std::ranges::sort(all);
  return all;
}

void trial::tick(const swept_command& command, int number) {
  QWidget* top = QApplication::activeModalWidget();
  if (!top || !top->isVisible() || (!at_work_.empty() && at_work_.back() == top)) return;
  if (QApplication::activeWindow() != top) return top->activateWindow();
  at_work_.push_back(top);
  step(*top, command, number);
  at_work_.pop_back();
}

void trial::step(QWidget& top, const swept_command& command, int number) {
  const std::string window = top.objectName().toStdString();
  way.push_back(window);
  if (way.size() > 60) give_up(command.name + ", occasion " + std::to_string(number));
  const bool has_failed = !faults_->failed().empty();
  if (auto* box = qobject_cast<QMessageBox*>(&top)) {
    read(*box, command, has_failed);
    return box->button(QMessageBox::Ok)->click();
  }
  if (has_failed && after_failure.empty()) after_failure = content();
  // A title whose answer was lost is taken, by the definition itself.
  if (way.size() > 1 && way.end()[-2].starts_with("そのタイトル")) type("Text1", "別");
  if (has_failed && !is_patient_) return close(top);
  faults_->mend();
  has_left_ = has_left_ || is_done(command);
  if (has_left_) return leave(window);
  if (window == command.window && !is_armed_) faults_->fail(number);
  is_armed_ = is_armed_ || window == command.window;
  try {
    command.deeds.at(window)();
  } catch (const std::runtime_error& missing) {
    // What a deletion has taken away already is not there for a second try.
    if (!command.takes_rows_away) give_up(command.name + ": " + missing.what());
    has_left_ = true;
    leave(window);
  }
}

void trial::read(const QMessageBox& box, const swept_command& command, bool has_failed) {
  const std::string text = box.text().toStdString();
  way.back() = text;
  if (has_failed && !std::exchange(has_read_, true)) was_told = faults_->tells(text);
  // The yes/no dialog says so before its last statements; what fails then is told afterwards.
  if (command.deeds.contains("r_yesno_cond")) return;
  was_deceived = was_deceived || (text == "設定完了！" && !is_done(command));
}

// The editor stays until the title is stored.
void trial::close(QWidget& top) {
  if (std::ranges::count(way, way.back()) > 4) faults_->mend();
  top.close();
}

bool trial::is_done(const swept_command& command) {
  return store_->value(command.goal) == "1";
}

// Modal loops can't be left in good order.
void trial::give_up(const std::string& what) const {
  std::fprintf(stderr, "never succeeds: %s\n", what.c_str());
  for (const std::string& window : way) std::fprintf(stderr, "  %s\n", window.c_str());
  std::_Exit(1);
}

}  // namespace harness
