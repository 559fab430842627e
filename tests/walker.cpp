#include "walker.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "ta_vorlumine/replace_class.h"

namespace harness {
namespace {

constexpr std::size_t deeds_told = 25;

/// What a user may read when nothing but users is at fault. Any other text is a defect.
constexpr std::array known_texts = {
    "この場所への移動はできません",
    "アドレス項目を選択してください。",
    "タイトルが文字列長すぎます",
    "タイトルを入力してください。",
    "フィールドを選択してください。",
    "フォルダが必須です。",
    "入力に誤りがあります。",
    "日付無効.",
    "条件あるときは以外条件が削除出来ません",
    "条件名が文字列長すぎます",
    "第",  // the row of a range whose ends are the wrong way round
    "置換値が必須です。",
    "設定完了！",
    "選択してください!",
    "項目「",
    "項目名に「'」が含まれているため",
    "削除してもよろしいですか",
    "アドレス帳と同じ名称は設定できません。",
    "そのタイトルはすでに使用されています。",
    "CHECK constraint failed: d_",  // a day that no calendar has is told, and stays as typed
    "CHECK constraint failed: n_",
    // Another user on the same store was quicker.
    "database is locked",
    "対象の行は他のプログラムによって削除されています。",
    "この位置には項目または置換値がすでに設定されています。",
    "選択した項目はアドレス帳から削除されています。",
};

bool is_known(const QString& text) {
  for (const char* known : known_texts) {
    if (text.startsWith(known)) return true;
  }
  return false;
}

}  // namespace

void walker::give_up(const std::string& why) const {
  std::fprintf(stderr, "seed %llu, deed %d: %s\n", static_cast<unsigned long long>(seed_), done_,
               why.c_str());
  for (const std::string& deed : last_deeds_) std::fprintf(stderr, "  %s\n", deed.c_str());
  std::fflush(nullptr);
  std::_Exit(1);
}

void walker::note(const std::string& deed) {
  tell(deed);
  last_deeds_.push_back(std::to_string(done_) + " " + deed);
  if (last_deeds_.size() > deeds_told) last_deeds_.pop_front();
}

int walker::below(int bound) {
  return static_cast<int>(random_() % static_cast<std::uint64_t>(bound));
}

void walker::pick(const std::vector<choice>& choices) {
  int sum = 0;
  for (const auto& [weight, deed] : choices) sum += weight;
  int number = below(sum);
  for (const auto& [weight, deed] : choices) {
    if (number < weight) return deed();
    number -= weight;
  }
}

void walker::walk(const std::string& connect_string, int deeds) {
  wanted_ = done_ + deeds;
  QTimer clock;
  QObject::connect(
      &clock, &QTimer::timeout, &clock, [this] { tick(); }, Qt::QueuedConnection);
  clock.start(0);
  while (done_ < wanted_) {
    fresh_ = true;
    ta_vorlumine::replaceClass editor;
    editor.CONNECT_STRING = connect_string;
    editor.replace_show();
  }
}

// A deed that opens a window runs on, inside, until that window is gone; until then only windows
// above its own are looked at.
void walker::tick() {
  QWidget* top = QApplication::activeModalWidget();
  if (!top || !top->isVisible() || (!at_work_.empty() && at_work_.back() == top)) return;
  if (QApplication::activeWindow() != top) return top->activateWindow();
  at_work_.push_back(top);
  try {
    look(*this);
    ++done_;
    if (done_ > wanted_ + 1000)
      give_up("there is no way out of " + top->objectName().toStdString());
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    done_ > wanted_ ? leave(*top) : do_something(*top);
  } catch (const std::exception& failure) {
    give_up(failure.what());
  }
  at_work_.pop_back();
}

void walker::do_something(QWidget& top) {
  if (top.inherits("QMessageBox")) return answer(top);
  if (top.inherits("QFileDialog")) return use_file_dialog(top);
  if (top.objectName() == "replaceForm") return browse_title_tree(top);
  fresh_ = true;  // an editor that closes loads the tree
  if (top.objectName() == "replace_create") return edit_rule_tree(top);
  if (top.objectName() == "replaceFolder") fresh_ = false;
  use_dialog(top);
}

void walker::answer(QWidget& box) {
  auto& message = static_cast<QMessageBox&>(box);
  note("reads \"" + message.text().toStdString() + "\"");
  if (message.windowTitle() != "Quorvi" || !is_known(message.text()))
    give_up("nobody should read this");
  const auto buttons = message.buttons();
  pick({{8, [&] { message.button(QMessageBox::Ok)->click(); }},
        {2, [&] { buttons[below(static_cast<int>(buttons.size()))]->click(); }},
        {1, [&] { message.reject(); }}});
}

void walker::browse_title_tree(QWidget& top) {
  fresh_ = false;
  pick({{50, [&] { click_any_node(top, false); }},
        {4, [&] { click_any_node(top, true); }},
        {45, [&] { press_any(top); }},
        {12, [&] { drag_any_node(top); }},
        {4, [&] { press_any_key(top); }},
        {1, [&] { close_by_frame(top); }}});
}

void walker::edit_rule_tree(QWidget& top) {
  pick({{50, [&] { click_any_node(top, false); }},
        {60, [&] { press_any(top); }},
        {15, [&] { type_any(top); }},
        {5, [&] { press_any_key(top); }},
        {2, [&] { close_by_frame(top); }}});
}

void walker::use_dialog(QWidget& top) {
  pick({{top.findChild<QWidget*>("fg") ? 60 : 0, [&] { use_grid(top); }},
        {20, [&] { type_any(top); }},
        {20, [&] { choose_any(top); }},
        {30, [&] { press_any(top); }},
        {4, [&] { press_any_key(top); }},
        {1, [&] { close_by_frame(top); }}});
}

// The shortest way out; a definition gets a title that nobody else has.
void walker::leave(QWidget& top) {
  if (top.inherits("QMessageBox")) return answer(top);
  const QString name = top.objectName();
  if (name == "replaceForm") return press_named("close");
  if (name == "replace_create") return press_named("exit");
  if (name == "openDlg") return use_file_dialog(top);
  press_named(name == "replaceFolder" ? "Command3" : "Command2");
}

}  // namespace harness
