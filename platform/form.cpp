#include "platform/form.h"

#include <QApplication>
#include <utility>

#include "platform/arrangement.h"
#include "platform/busy_pointer.h"
#include "platform/control.h"
#include "platform/fonts.h"
#include "platform/modal_loop.h"
#include "platform/toolkit_peer.h"
#include "platform/window.h"

namespace platform {

Form::Form(std::string name, std::string caption, int width, int height, frame window_frame)
    : name_(std::move(name)),
      caption_(std::move(caption)),
      width_(width),
      height_(height),
      frame_(window_frame) {}

// If the process ends under a dialog, the window may be the owner of one that lies on the stack.
Form::~Form() {
  if (running_dialog()) static_cast<void>(window_.release());
}

void Form::load() {
  if (window_) return;
  make_widgets();
  try {
    if (on_load) on_load();
  } catch (...) {
    destroy_widgets();
    throw;
  }
}

void Form::make_widgets() {
  window_ = std::make_unique<window>(*this, running_dialog());
  window_->setObjectName(to_toolkit(name_));
  window_->setWindowTitle(to_toolkit(caption_));
  window_->setFont(window_font());
  for (Control* control : controls_) {
    control->peer_ = control->make();
    control->peer_->widget->setParent(window_.get());
    control->peer_->widget->setObjectName(to_toolkit(control->name_));
  }
  if (first_stop) first_stop->peer_->widget->setFocus();
  for (Control* control : controls_) control->tie();
  window_->setLayout(arrangement::of(body));
  const QSize wanted(scaled_pixels(width_), scaled_pixels(height_));
  window_->resize(
      wanted.expandedTo(window_->minimumSizeHint()).boundedTo(window_->room_on_screen()));
  if (frame_ == frame::fixed) window_->setFixedSize(window_->size());
}

void Form::destroy_widgets() {
  for (Control* control : controls_) control->peer_.reset();
  window_.reset();
  unloading_ = false;
}

void Form::show() {
  load();
  {
    const modal_run run;
    run_modally(*window_);
  }
  if (!unloading_) close_unasked();
  destroy_widgets();
  // A message that went just before leaves some window managers with no window to go back to.
  if (QWidget* beneath = QApplication::activeModalWidget()) beneath->activateWindow();
}

void Form::unload() {
  if (!window_ || unloading_) return;
  unloading_ = true;
  // The window goes even if on_unload fails: else it would stay on top of all others.
  struct ending {
    Form& form;
    ~ending() {
      if (form.window_->isVisible()) {
        form.window_->done(QDialog::Accepted);
      } else {
        form.destroy_widgets();
      }
    }
  } const end{*this};
  if (on_unload) on_unload();
}

void Form::close() {
  guarded([this] { on_close ? on_close() : unload(); });
}

void Form::guarded_press(const std::function<void()>& press) {
  const QDialog* const top = running_dialog();
  if (!top || top == window_.get()) guarded(press);
}

// What a question would have kept open goes all the same.
void Form::close_unasked() {
  close();
  if (loaded() && !unloading_) guarded([this] { unload(); });
}

void Form::set_caption(std::string_view caption) {
  load();
  window_->setWindowTitle(to_toolkit(caption));
}

std::string Form::active_control() const {
  const QWidget* focused = QApplication::focusWidget();
  for (const Control* control : controls_) {
    if (focused && control->peer_ && control->peer_->widget == focused) return control->name_;
  }
  return {};
}

}  // namespace platform
