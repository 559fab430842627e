#include "lasting_user.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QThread>
#include <cstdio>
#include <exception>

#include "user.h"

namespace harness {

void lasting_user::work(const std::string& connect_string) {
  next();
  while (!is_over()) {
    try {
      play([&] { show_browser(connect_string); });
    } catch (const std::exception& failure) {
      std::printf("told %s\n", failure.what());
      QThread::msleep(200);
    }
  }
}

void lasting_user::take_turn(QWidget& top) {
  const std::string window = name_of(&top);
  note(window);
  if (qobject_cast<QMessageBox*>(&top)) return read(top);
  if (window == "replaceForm" && was_pressed_) tell_stored();
  try {
    is_over() ? go(top) : do_step(window);
  } catch (const std::exception&) {
    go(top_window());  // what failed left the window without what the step needs
  }
}

void lasting_user::do_step(const std::string& window) {
  if (window == "replaceForm") {
    click_node(makes_folder() ? "条件設定" : "新規");
    press(makes_folder() ? "addf" : "update");
  } else if (window == "replaceFolder") {
    type("Text1", text_);
    was_pressed_ = true;
    press("Command2");
  } else if (window == "replace_create") {
    if (makes_folder()) return press("exit");
    click_node("氏名");
    press("cond_set");
  } else {
    fill_cell(1, 5, text_);
    fill_cell(1, 6, "1");
    press("Command1");
  }
}

/// Out of the window; what it was about is left open, and never tried again.
void lasting_user::go(QWidget& top) {
  next();
  leave(top);
}

void lasting_user::read(QWidget& message) {
  const std::string text = name_of(&message);
  if (text == "設定完了！") {
    tell_stored();
  } else {
    std::printf("told %s\n", text.c_str());
    QThread::msleep(200);
  }
  static_cast<QMessageBox&>(message).button(QMessageBox::Ok)->click();
}

void lasting_user::tell_stored() {
  std::printf("stored %s\n", text_.c_str());
  std::fflush(stdout);
  next();
}

void lasting_user::next() {
  text_ = name_ + "-" + std::to_string(++number_);
  was_pressed_ = false;
}

int work_command(const std::vector<std::string>& arguments) {
  const std::chrono::seconds time(std::stoi(arguments.at(1)));
  lasting_user(arguments.at(0), time).work(arguments.at(2));
  return 0;
}

}  // namespace harness
