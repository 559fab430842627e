#include "platform/messages.h"

#include <QApplication>
#include <QMessageBox>

#include "platform/fonts.h"
#include "platform/native.h"

namespace platform {
namespace {

/// A message in the middle of long work waits for the user, not the user for it.
struct plain_pointer {
  plain_pointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~plain_pointer() { QApplication::restoreOverrideCursor(); }
};

int run(QMessageBox::Icon icon, std::string_view text, QMessageBox::StandardButtons buttons) {
  QMessageBox box(icon, "Quorvi", to_toolkit(text), buttons, QApplication::activeModalWidget());
  box.setTextFormat(Qt::PlainText);
  box.setFont(window_font());
  box.setDefaultButton(QMessageBox::Ok);
  const plain_pointer pointer;
  return box.exec();
}

}  // namespace

void message(std::string_view text) {
  run(QMessageBox::Information, text, QMessageBox::Ok);
}

bool ask(std::string_view text) {
  return run(QMessageBox::Question, text, QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

}  // namespace platform
