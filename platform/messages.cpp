#include "platform/messages.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QMessageBox>

#include "platform/busy_pointer.h"
#include "platform/fonts.h"
#include "platform/modal_loop.h"
#include "platform/toolkit_peer.h"

namespace platform {
namespace {

// A short text alone would leave the frame no room for the caption beside its buttons.
void make_room_for_caption(QMessageBox& box) {
  constexpr int width = 260;
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

int run(QMessageBox::Icon icon, std::string_view text, QMessageBox::StandardButtons buttons) {
  if (windows_are_left()) return QMessageBox::Cancel;
  QMessageBox box(icon, "Quorvi", to_toolkit(text), buttons, running_dialog());
  box.setTextFormat(Qt::PlainText);
  box.setFont(window_font());
  box.setDefaultButton(QMessageBox::Ok);
  for (QAbstractButton* button : box.buttons())
    button->setIcon(QIcon());  // no other window has any
  make_room_for_caption(box);
  const modal_run run;  // with a plain pointer: the message waits for the user
  return run_modally(box);
}

}  // namespace

void message(std::string_view text) {
  run(QMessageBox::Information, text, QMessageBox::Ok);
}

bool ask(std::string_view text) {
  return run(QMessageBox::Question, text, QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

}  // namespace platform
