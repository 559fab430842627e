#include "platform/toolbar.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <stdexcept>
#include <utility>

#include "platform/form.h"
#include "platform/tool_button.h"
#include "platform/toolkit_peer.h"

namespace platform {
namespace {

struct toolbar_peer : toolkit_peer {
  using toolkit_peer::toolkit_peer;
  std::vector<QToolButton*> buttons;  // null for a separator
};

QToolButton& widget_at(toolkit_peer& peer, int position) {
  return *static_cast<toolbar_peer&>(peer).buttons.at(static_cast<std::size_t>(position) - 1);
}

QToolButton* make_button(const Toolbar::button& button, const std::string& picture, int number) {
  auto* made = new tool_button;
  made->setObjectName(to_toolkit(button.key));
  made->setText(to_toolkit(button.caption));
  made->setIcon(QIcon(to_toolkit(picture)));
  made->setIconSize(QSize(24, 24));
  made->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  made->setAutoRaise(true);
  made->setFocusPolicy(Qt::TabFocus);
  const QKeySequence shortcut(Qt::ALT | static_cast<Qt::Key>(Qt::Key_0 + number));
  made->setShortcut(shortcut);
  made->setAccessibleDescription(to_toolkit(button.description));
  made->setToolTip(QString("%1 (Alt+%2)").arg(to_toolkit(button.description)).arg(number));
  return made;
}

QFrame* make_separator() {
  auto* line = new QFrame;
  line->setFrameShape(QFrame::VLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace

Toolbar::Toolbar(Form& form, std::string name, const ImageList& pictures,
                 std::vector<button> buttons)
    : Control(form, std::move(name)), pictures_(pictures), buttons_(std::move(buttons)) {}

std::unique_ptr<toolkit_peer> Toolbar::make() {
  auto* bar = new QWidget;
  auto peer = std::make_unique<toolbar_peer>(bar);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  int number = 0;
  for (const button& each : buttons_) {
    if (each.key.empty()) {
      row->addWidget(make_separator());
      peer->buttons.push_back(nullptr);
      continue;
    }
    QToolButton* made = make_button(each, pictures_.path(each.key), ++number);
    const int position = static_cast<int>(peer->buttons.size()) + 1;
    QObject::connect(made, &QToolButton::clicked, bar, [this, key = each.key, position] {
      if (on_button_click) form().guarded_press([&] { on_button_click(key, position); });
    });
    row->addWidget(made);
    peer->buttons.push_back(made);
  }
  row->addStretch();
  return peer;
}

int Toolbar::position_of(std::string_view key) const {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (buttons_[i].key == key) return static_cast<int>(i) + 1;
  }
  throw std::logic_error("no such button: " + std::string(key));
}

const Toolbar::button& Toolbar::described(std::string_view key) const {
  return buttons_[static_cast<std::size_t>(position_of(key)) - 1];
}

std::string Toolbar::picture(std::string_view key) const {
  return pictures_.path(std::string(key));
}

bool Toolbar::is_on(std::string_view key) {
  return widget_at(peer(), position_of(key)).isEnabled();
}

void Toolbar::press(std::string_view key) {
  widget_at(peer(), position_of(key)).click();
}

void Toolbar::enable(std::string_view key, bool enabled) {
  enable(position_of(key), enabled);
}

void Toolbar::enable(int position, bool enabled) {
  QToolButton& widget = widget_at(peer(), position);
  if (!enabled && rest && widget.window()->focusWidget() == &widget) rest->set_focus();
  widget.setEnabled(enabled);
}

}  // namespace platform
