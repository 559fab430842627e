#include "paired_user.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMessageBox>
#include <QProcess>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "store/connection.h"
#include "user.h"

namespace harness {

void paired_user::work(const std::string& connect_string, const std::function<bool()>& is_done) {
  is_done_ = is_done;
  play([&] { show_browser(connect_string); });
}

void paired_user::take_turn(QWidget& top) {
  const std::string window = name_of(&top);
  note(window);
  has_begun_ = has_begun_ || window == command_.window;
  if (has_begun_ && ++turns_ == stop) at_stop();
  if (turns_ > 60) give_up("never ends");
  if (qobject_cast<QMessageBox*>(&top)) return read(top);
  // A copy can't be left under the title of its source.
  const bool is_title_taken = !messages_.empty() && messages_.back().starts_with("そのタイトル");
  if (is_title_taken && window == "replace_create") type("Text1", "別");
  if (turns_ > 30 && !leaves_) {
    // A button that stays off: the other user has filled the place.
    found_nothing_ = true;
    leaves_ = true;
  }
  leaves_ = leaves_ || (!std::exchange(tries_again_, false) && is_done_());
  leaves_ ? leave(top) : do_step(top);
}

void paired_user::do_step(QWidget& top) {
  try {
    command_.steps.at(name_of(&top))();
  } catch (const std::exception&) {
    // The other user has taken away what the step needs.
    found_nothing_ = true;
    leaves_ = true;
    leave(top_window());
  }
}

void paired_user::read(QWidget& message) {
  const std::string text = name_of(&message);
  auto& box = static_cast<QMessageBox&>(message);
  const bool is_question = box.buttons().size() > 1;
  was_asked_ = was_asked_ || is_question;
  const bool asks_to_leave = text.starts_with("タイトルと備考を保存できませんでした。");
  if (asks_to_leave || (!is_question && text != "設定完了！")) {
    messages_.push_back(text);
    tries_again_ = !asks_to_leave && tells_loss(engine_text(text));
    leaves_ = !tries_again_;
  }
  box.button(QMessageBox::Ok)->click();
}

// The code of a process that a signal has ended is the signal's number.
bool was_killed(const QProcess& user) {
  return user.exitStatus() == QProcess::CrashExit && user.exitCode() == SIGKILL;
}

namespace {

void print(const paired_user& user) {
  for (const std::string& text : user.messages()) std::puts(text.c_str());
  if (user.found_nothing()) std::puts("what the command needs is not shown");
  std::fflush(stdout);
}

/// Users of the command who are killed, each at the stop after the one before, and one who isn't.
void kill_at_each_stop(const std::string& command, const std::string& connect_string) {
  QProcess user;
  user.setProcessChannelMode(QProcess::ForwardedChannels);
  for (int stop = 1; stop == 1 || was_killed(user); ++stop) {
    user.start(QCoreApplication::applicationFilePath(),
               {"--do", QString::fromStdString(command), QString::fromStdString(connect_string),
                QString::number(stop)});
    user.waitForFinished(60'000);
  }
  if (user.exitStatus() == QProcess::CrashExit) std::abort();
}

}  // namespace

int do_command(const std::vector<std::string>& arguments) {
  const auto commands = swept_commands();
  const swept_command& command =
      *std::ranges::find(commands, arguments.at(0), &swept_command::name);
  const std::string& connect_string = arguments.at(1);
  ADODB::Connection conn;
  conn.Open(connect_string);
  paired_user user(command);
  user.stop = arguments.size() > 2 ? std::stoi(arguments[2]) : 0;
  user.at_stop = [&] {
    if (arguments.size() > 3) kill_at_each_stop(arguments[3], connect_string);
    std::raise(SIGKILL);
  };
  user.work(connect_string, [&] { return is_reached(command, conn); });
  print(user);
  return 0;
}

}  // namespace harness
