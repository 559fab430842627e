#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "harness.h"
#include "ta_vorlumine/replace_class.h"

namespace harness {
namespace {

constexpr int deadline = 10'000;  // milliseconds

std::string name_of(const QWidget* window) {
  if (!window) return "no window";
  if (const auto* box = qobject_cast<const QMessageBox*>(window)) {
    return "the message \"" + box->text().toStdString() + "\"";
  }
  return window->objectName().toStdString();
}

[[noreturn]] void give_up(const std::string& why) {
  std::fprintf(stderr, "the windows went another way: %s\n", why.c_str());
  std::fflush(nullptr);
  std::_Exit(1);
}

long long now() {
  static QElapsedTimer clock = [] {
    QElapsedTimer started;
    started.start();
    return started;
  }();
  return clock.elapsed();
}

}  // namespace

user& user::in(const std::string& form, std::function<void()> deed) {
  steps_.push_back({form, [form](QWidget& top) { return name_of(&top) == form; }, std::move(deed)});
  return *this;
}

user& user::whatever(const std::string& what, std::function<void()> deed) {
  steps_.push_back({what, [](QWidget&) { return true; }, std::move(deed)});
  return *this;
}

user& user::message(const std::string& text) {
  return question(text, true);
}

user& user::question(const std::string& text, bool ok) {
  steps_.push_back({"the message \"" + text + "\"",
                    [text](QWidget& top) {
                      const auto* box = qobject_cast<QMessageBox*>(&top);
                      return box && box->text().toStdString() == text &&
                             box->windowTitle() == "Quorvi";
                    },
                    [ok] {
                      auto& box = static_cast<QMessageBox&>(top_window());
                      box.button(ok ? QMessageBox::Ok : QMessageBox::Cancel)->click();
                    }});
  return *this;
}

// Deeds run from a tick of the innermost event loop. A deed that opens a window runs on, inside,
// until that window is gone: until then only windows above its own are looked at.
void user::play() {
  QWidget* top = QApplication::activeModalWidget();
  const bool idle = top && top->isVisible() && (at_work_.empty() || at_work_.back() != top);
  if (idle && QApplication::activeWindow() != top) return top->activateWindow();
  if (!idle) {
    if (now() - waiting_since_ > deadline) {
      give_up("waited too long at " + name_of(top) + " for " +
              (steps_.empty() ? "the end" : steps_.front().expected));
    }
    return;
  }
  if (steps_.empty()) give_up("nothing was expected, but there is " + name_of(top));
  if (!steps_.front().matches(*top)) {
    give_up("expected " + steps_.front().expected + ", but there is " + name_of(top));
  }
  const step next = std::move(steps_.front());
  steps_.pop_front();
  at_work_.push_back(top);
  try {
    next.deed();
  } catch (const std::exception& failure) {
    give_up(failure.what());
  }
  at_work_.pop_back();
  waiting_since_ = now();
}

void user::during(const std::function<void()>& modal) {
  waiting_since_ = now();
  QTimer tick;
  // A timer does not fire again while its own slot runs; a deed that opens a window runs long.
  QObject::connect(
      &tick, &QTimer::timeout, &tick, [this] { play(); }, Qt::QueuedConnection);
  tick.start(1);
  modal();
  tick.stop();
  EXPECT_TRUE(steps_.empty()) << "the windows were gone before " << steps_.front().expected;
  steps_.clear();
}

void user::browse(const test_store& store) {
  during([&store] {
    ta_vorlumine::replaceClass editor;
    editor.CONNECT_STRING = store.connect_string();
    editor.replace_show();
  });
}

}  // namespace harness
