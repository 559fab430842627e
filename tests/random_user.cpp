#include "random_user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <algorithm>
#include <array>

#include "user.h"

namespace harness {
namespace {

/// What a user may read when nothing but users is at fault. Any other text is a defect.
constexpr std::array known_texts = {
    "この場所への移動はできません", "アドレス項目を選択してください。",
    "タイトルが文字列長すぎます", "タイトルを入力してください。", "フィールドを選択してください。",
    "フォルダが必須です。", "入力に誤りがあります。", "日付無効.",
    "条件あるときは以外条件が削除出来ません", "条件名が文字列長すぎます",
    "第",  // the row of a range whose ends are the wrong way round
    "置換値が必須です。", "設定完了！", "選択してください!", "項目「",
    "項目名に「'」が含まれているため", "削除してもよろしいですか",
    "アドレス帳と同じ名称は設定できません。", "そのタイトルはすでに使用されています。",
    "CHECK constraint failed: d_",  // a day that no calendar has is told, and stays as typed
    "CHECK constraint failed: n_", "invalid input syntax for type numeric: ",
    // Another user on the same store was quicker.
    "database is locked", "対象の行は他のプログラムによって削除されています。",
    "この位置には項目または置換値がすでに設定されています。",
    "選択した項目はアドレス帳から削除されています。"};

}  // namespace

std::string random_user::name() const {
  return "seed " + std::to_string(seed_) + ", turn " + std::to_string(done_);
}

void random_user::note(const std::string& action) {
  tell(action);
  window_player::note(action);
}

void random_user::pick(const std::vector<choice>& choices) {
  std::size_t sum = 0;
  for (const auto& [weight, action] : choices) sum += weight;
  int number = below(static_cast<int>(sum));
  for (const auto& [weight, action] : choices) {
    if (number < weight) return action();
    number -= weight;
  }
}

void random_user::walk(const std::string& connect_string, int turns) {
  wanted_ = done_ + turns;
  const QFont font = QApplication::font();
  while (done_ < wanted_) {
    fresh_ = true;
    play([&] { show_browser(connect_string); });
  }
  QApplication::setFont(font);
}

void random_user::take_turn(QWidget& top) {
  look();
  ++done_;
  if (done_ > wanted_ + 1000) give_up("there is no way out of " + name_of(&top));
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  done_ > wanted_ ? go(top) : do_something(top);
}

void random_user::do_something(QWidget& top) {
  if (top.inherits("QMessageBox")) return answer(top);
  if (top.inherits("QFileDialog")) return use_file_dialog(top);
  const bool in_browser = top.objectName() == "replaceForm";
  const bool in_editor = top.objectName() == "replace_create";
  fresh_ = !in_browser && top.objectName() != "replaceFolder";  // an editor that closes loads it
  const bool has_tree = in_browser || in_editor;
  pick({{has_tree ? 50 : 0, [&] { click_any_node(false); }},
        {in_browser ? 4 : 0, [&] { click_any_node(true); }},
        {in_browser ? 12 : 0, [&] { drag_any_node(); }},
        {has_tree ? 0 : 20, [&] { choose_any(); }},
        {top.findChild<QWidget*>("fg") ? 60 : 0, [&] { use_grid(); }},
        {in_browser ? 0 : 15, [&] { type_any(); }},
        {45, [&] { press_any(); }},
        {10, [&] { press_any_key(); }},
        {has_tree ? 8 : 0, [&] { use_menu(); }},
        {has_tree ? 4 : 0, [&] { search_any(); }},
        {4, [&] { paste_any(); }},
        {2, [&] { resize_any(top); }},
        {1, [&] { change_font(); }},
        {1, [&] { close_by_frame(top); }}});
}

void random_user::answer(QWidget& box) {
  auto& message = static_cast<QMessageBox&>(box);
  const std::string text = message.text().toStdString();
  note("reads \"" + text + "\"");
  const auto is_begin = [&](const char* known) {
    return text.starts_with(known) || engine_text(text).starts_with(known);
  };
  const bool is_known = reads_anything || std::ranges::any_of(known_texts, is_begin);
  if (message.windowTitle() != "Quorvi" || !is_known) give_up("nobody should read this");
  pick({{8, [&] { message.button(QMessageBox::Ok)->click(); }},
        {2, [&] { any_of(message.buttons())->click(); }},
        {1, [&] { message.reject(); }}});
}

// The shortest way out; a definition gets a title that nobody else has.
void random_user::go(QWidget& top) {
  if (top.inherits("QMessageBox")) return answer(top);
  if (top.inherits("QFileDialog")) return use_file_dialog(top);
  if (top.objectName() == "replace_create") type("Text1", "出口" + name());
  leave(top);
}

}  // namespace harness
