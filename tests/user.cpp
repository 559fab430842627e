#include "user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <stdexcept>
#include <utility>

#include "script.h"
#include "test_store.h"
#include "window_player.h"

namespace harness {
namespace {

/// Plays a script. What the script does to a window runs on the stack of that window's event loop,
/// so that the script can go on in the window that opens.
class scripted_user : public window_player {
 public:
  explicit scripted_user(const std::function<void()>& body) : script_(body) {}

  void play_to_end(const std::function<void()>& open) {
    play(open);
    if (!script_.has_ended()) script_.go_on();
    if (!script_.has_ended()) give_up("the windows have gone before the script's end");
  }
  /// For the script itself.
  void act(const std::function<void()>& action) {
    action_ = action;
    script_.pause();
  }
  [[nodiscard]] bool is_in_script() const { return script_.is_running(); }

 private:
  void take_turn(QWidget& top) override {
    if (is_in_script()) give_up("something opens a window outside of act()");
    if (!script_.has_ended()) script_.go_on();
    if (action_) return std::exchange(action_, {})();
    const std::string window = name_of(&top);
    const bool is_left = window == "replaceForm" || window == "replace_create";
    is_left ? leave(top) : give_up("the script has ended, but there is " + window);
  }
  [[nodiscard]] std::string name() const override { return "the script"; }

  script script_;
  std::function<void()> action_;
};

void expect(bool met, const std::string& what) {
  if (!met) throw std::runtime_error("expected " + what + ", not " + name_of(&top_window()));
}

void answer(QMessageBox::StandardButton button) {
  act([button] { static_cast<QMessageBox&>(top_window()).button(button)->click(); });
}

}  // namespace

void play(const std::function<void()>& open, const std::function<void()>& script) {
  scripted_user(script).play_to_end(open);
}

void browse(const test_store& store, const std::function<void()>& script) {
  play([&] { show_browser(store.connect_string()); }, script);
}

void edit(const test_store& store, const std::string& title, const std::function<void()>& script) {
  browse(store, [&] {
    click_node(title);
    press("update");
    in("replace_create");
    script();
  });
}

void act(const std::function<void()>& action) {
  auto* const user = dynamic_cast<scripted_user*>(window_player::playing());
  user && user->is_in_script() ? user->act(action) : action();
}

QWidget& top_window() {
  QWidget* const top = QApplication::activeModalWidget();
  if (!top) throw std::runtime_error("there is no window");
  return *top;
}

void in(const std::string& window) {
  expect(name_of(&top_window()) == window, window);
}

void message(const std::string& text) {
  expect(qobject_cast<QMessageBox*>(&top_window()) != nullptr, "the message " + text);
  const std::string shown = read_message();
  if (shown != text && !shown.ends_with("\n\n" + text))
    throw std::runtime_error("expected " + text + ", not " + shown);
}

void question(const std::string& text, bool ok) {
  expect(name_of(&top_window()) == text, "the question " + text);
  const auto buttons = static_cast<QMessageBox&>(top_window()).standardButtons();
  expect(buttons == (QMessageBox::Ok | QMessageBox::Cancel), "OK and Cancel");
  answer(ok ? QMessageBox::Ok : QMessageBox::Cancel);
}

std::string read_message() {
  const auto* box = qobject_cast<QMessageBox*>(&top_window());
  expect(box && box->windowTitle() == "Quorvi", "a message");
  std::string text = box->text().toStdString();
  answer(QMessageBox::Ok);
  return text;
}

}  // namespace harness
