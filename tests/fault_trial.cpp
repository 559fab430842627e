#include "fault_trial.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <algorithm>
#include <utility>

#include "random_walk.h"
#include "user.h"

namespace harness {

fault_trial::fault_trial(std::optional<test_store>& store, const trouble& trouble) {
  if (!store || !on_server()) store.emplace();
  for (const char* table : {"replace", "replace_m", "replace_cond", "field"})
    store->run(std::string("delete from ") + table);
  store->run_script("common_rules.sql");
  store_ = &*store;
  before = content();
  faults_ = trouble.make(*store);
}

void fault_trial::play_command(const swept_command& command, int number, bool is_patient) {
  command_ = &command;
  number_ = number;
  is_patient_ = is_patient;
  play([&] { show_browser(faults_->connect_string(*store_)); });
  failed = faults_->failed();
  was_reached = number <= faults_->seen();
  faults_.reset();
  after = content();
  shape = shape_faults(store_->connect_string());
  // A counter that stays behind heals at the next command.
  std::erase_if(shape, [](const std::string& fault) { return fault.starts_with("seqno"); });
}

std::string fault_trial::name() const {
  return command_->name + ", occasion " + std::to_string(number_);
}

fault_trial::rows fault_trial::content() {
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

void fault_trial::take_turn(QWidget& top) {
  const std::string window = name_of(&top);
  note(window);
  way.push_back(window);
  if (way.size() > 60) give_up("never succeeds");
  if (auto* box = qobject_cast<QMessageBox*>(&top)) return read(*box);
  if (has_failed() && after_failure.empty()) after_failure = content();
  // A title whose answer was lost is taken, by the definition itself.
  if (way.size() > 1 && way.end()[-2].starts_with("そのタイトル")) type("Text1", "別");
  if (has_failed() && !is_patient_) return static_cast<void>(top.close());
  faults_->mend();
  has_left_ = has_left_ || is_done();
  has_left_ ? leave(top) : do_step(window);
}

void fault_trial::do_step(const std::string& window) {
  if (window == command_->window && !std::exchange(is_armed_, true)) faults_->fail(number_);
  try {
    command_->steps.at(window)();
  } catch (const std::runtime_error&) {
    // What a deletion has taken away already is not there for a second try.
    if (!command_->takes_rows_away) throw;
    has_left_ = true;
    leave(top_window());
  }
}

void fault_trial::read(QMessageBox& box) {
  std::string text = way.back();
  const std::string leaving =
      "タイトルと備考を保存できませんでした。保存せずに閉じてもよろしいですか\n\n";
  const bool may_leave = text.starts_with(leaving);
  if (may_leave) text.erase(0, leaving.size());
  if (has_failed() && !std::exchange(has_read_, true)) was_told = faults_->tells(engine_text(text));
  // The yes/no dialog says so before its last statements; what fails then is told afterwards.
  const bool is_early = command_->steps.contains("r_yesno_cond");
  was_deceived = was_deceived || (text == "設定完了！" && !is_early && !is_done());
  box.button(may_leave && is_patient_ ? QMessageBox::Cancel : QMessageBox::Ok)->click();
}

bool fault_trial::is_done() {
  return store_->value(command_->goal) == "1";
}

}  // namespace harness
