#include "platform/waiting_note.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include "platform/fonts.h"
#include "platform/input_sink.h"
#include "platform/modal_loop.h"
#include "platform/toolkit_peer.h"

namespace platform {
namespace {

/// A window of this kind never becomes active: a cell that is being edited would else take that for
/// the end of its editing, and its form would ask the store while that waits.
constexpr Qt::WindowFlags never_active = Qt::ToolTip;

/// Lets the note have what is meant for it, and keeps the rest from the other windows.
class sink_around : public input_sink {
 public:
  explicit sink_around(QFrame& note) : note_(note) {}
  [[nodiscard]] bool met_escape() const { return met_escape_; }

  // Who goes to another program meanwhile doesn't end the editing of a cell by that, either.
  bool eventFilter(QObject* receiver, QEvent* event) override {
    return event->type() == QEvent::FocusOut || input_sink::eventFilter(receiver, event);
  }

 private:
  bool takes(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::KeyPress)
      met_escape_ = met_escape_ || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    const auto* widget = qobject_cast<QWidget*>(receiver);
    return receiver != note_.windowHandle() && (!widget || widget->window() != &note_);
  }

  QFrame& note_;
  bool met_escape_ = false;
};

}  // namespace

struct waiting_note::parts {
  explicit parts(QWidget* owner) : frame(owner, never_active), sink(frame) {}

  QFrame frame;
  bool was_pressed = false;
  sink_around sink;
};

waiting_note::waiting_note(std::string_view text)
    : parts_(std::make_unique<parts>(running_dialog())) {
  QFrame& frame = parts_->frame;
  frame.setObjectName("waiting_note");
  frame.setFont(window_font());
  frame.setFrameShape(QFrame::Box);
  frame.setAttribute(Qt::WA_ShowWithoutActivating);
  auto* const button = new QPushButton("中止");
  button->setFocusPolicy(Qt::NoFocus);
  QObject::connect(button, &QPushButton::clicked, [this] { parts_->was_pressed = true; });
  auto* const layout = new QHBoxLayout(&frame);
  layout->addWidget(new QLabel(to_toolkit(text)));
  layout->addWidget(button);
  frame.adjustSize();
  const QWidget* const owner = frame.parentWidget();
  const QRect around = owner ? owner->frameGeometry() : frame.screen()->availableGeometry();
  frame.move(around.center() - frame.rect().center());
  frame.show();
  QApplication::setOverrideCursor(Qt::BusyCursor);
}

waiting_note::~waiting_note() {
  parts_->frame.hide();
  parts_->sink.swallow();
  QApplication::restoreOverrideCursor();
}

bool waiting_note::goes_on() {
  parts_->sink.swallow();
  return !windows_are_left() && !parts_->was_pressed && !parts_->sink.met_escape();
}

}  // namespace platform
