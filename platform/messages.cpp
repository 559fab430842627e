#include "platform/messages.h"

#include <QApplication>
#include <QMessageBox>

#include "platform/fonts.h"
#include "platform/native.h"

namespace platform {
namespace {

int run(QMessageBox::Icon icon, std::string_view text, QMessageBox::StandardButtons buttons) {
  QMessageBox box(icon, "Quorvi", to_toolkit(text), buttons, QApplication::activeModalWidget());
  box.setTextFormat(Qt::PlainText);
  box.setFont(window_font());
  box.setDefaultButton(QMessageBox::Ok);
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
