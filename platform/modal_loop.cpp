#include "platform/modal_loop.h"

#include <QApplication>
#include <QDrag>
#include <QEventLoop>
#include <utility>

namespace platform {
namespace {

/// The toolkit's own would be left with a dangling pointer to its loop by an exception.
class modal_loop : public QObject {
 public:
  modal_loop(QDialog& dialog, modal_loop* beneath) : beneath_(beneath), dialog_(dialog) {
    dialog_.installEventFilter(this);
    connect(&dialog_, &QDialog::finished, this, [this] { done_ = true; });
  }

  void run() {
    dialog_.show();
    loop_.exec(QEventLoop::DialogExec);
  }
  void exit() { loop_.exit(); }
  [[nodiscard]] modal_loop* beneath() const { return beneath_; }
  [[nodiscard]] QDialog& dialog() const { return dialog_; }
  [[nodiscard]] bool is_done() const { return done_; }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Hide && !event->spontaneous()) loop_.exit();
    return false;
  }

 private:
  modal_loop* beneath_;
  QDialog& dialog_;
  QEventLoop loop_;
  bool done_ = false;
};

thread_local modal_loop* running = nullptr;  // the last one
thread_local bool are_left = false;
thread_local std::exception_ptr left_because;

}  // namespace

int run_modally(QDialog& dialog) {
  if (are_left) return QDialog::Rejected;
  modal_loop loop(dialog, running);
  running = &loop;
  // A host without windows of its own would be ended together with the last one of ours.
  dialog.setAttribute(Qt::WA_QuitOnClose, false);
  dialog.setModal(true);
  let_events_happen([&] { loop.run(); });
  running = loop.beneath();
  // The host has hidden the dialog, or has ended all loops of the thread.
  if (!loop.is_done()) leave_windows();
  return loop.is_done() ? dialog.result() : QDialog::Rejected;
}

QDialog* running_dialog() {
  return running ? &running->dialog() : nullptr;
}

void let_events_happen(const std::function<void()>& run) {
  try {
    run();
  } catch (...) {
    leave_windows(std::current_exception());
  }
}

void leave_windows(std::exception_ptr because) {
  are_left = true;
  if (!left_because) left_because = std::move(because);
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  QDrag::cancel();
  for (modal_loop* loop = running; loop; loop = loop->beneath()) loop->exit();
}

bool windows_are_left() {
  return are_left;
}

std::exception_ptr end_leaving() {
  are_left = false;
  return std::exchange(left_because, nullptr);
}

}  // namespace platform
