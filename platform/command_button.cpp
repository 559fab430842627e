#include "platform/command_button.h"

#include <QKeyEvent>
#include <QPushButton>
#include <utility>

#include "platform/form.h"
#include "platform/toolkit_peer.h"

namespace platform {
namespace {

// Enter on a button presses that button. The toolkit would pass it on to the form's standard one:
// Enter on Cancel would be OK.
class push_button : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    enter ? click() : QPushButton::keyPressEvent(event);
  }
};

}  // namespace

CommandButton::CommandButton(Form& form, std::string name, std::string caption, role button_role)
    : Control(form, std::move(name)), caption_(std::move(caption)), role_(button_role) {}

std::unique_ptr<toolkit_peer> CommandButton::make() {
  auto* button = new push_button(to_toolkit(caption_));
  button->setAutoDefault(role_ == role::standard);
  button->setDefault(role_ == role::standard);
  QObject::connect(button, &QPushButton::clicked, button, [this] {
    if (on_click) form().guarded_press(on_click);
  });
  return std::make_unique<toolkit_peer>(button);
}

}  // namespace platform
