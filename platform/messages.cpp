#include "platform/messages.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>

#include "platform/busy_pointer.h"
#include "platform/fonts.h"
#include "platform/toolkit_peer.h"

namespace platform {
namespace {

/// A message in the middle of long work waits for the user, not the user for it.
struct plain_pointer {
  plain_pointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~plain_pointer() { QApplication::restoreOverrideCursor(); }
};

// A short text alone would leave the frame no room for the caption beside its buttons.
void make_room_for_caption(QMessageBox& box) {
  constexpr int width = 260;
  auto& layout = static_cast<QGridLayout&>(*box.layout());
  layout.addItem(new QSpacerItem(width, 0), layout.rowCount(), 0, 1, layout.columnCount());
}

int run(QMessageBox::Icon icon, std::string_view text, QMessageBox::StandardButtons buttons) {
  QMessageBox box(icon, "Quorvi", to_toolkit(text), buttons, QApplication::activeModalWidget());
  box.setTextFormat(Qt::PlainText);
  box.setFont(window_font());
  box.setDefaultButton(QMessageBox::Ok);
  for (QAbstractButton* button : box.buttons())
    button->setIcon(QIcon());  // no other window has any
  make_room_for_caption(box);
  const plain_pointer pointer;
  const modal_run run;
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
