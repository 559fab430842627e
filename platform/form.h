#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/layout.h"

namespace platform {

class Control;
class window;

/// The one object of type T of the calling thread, made when it is first named. It holds nothing of
/// the toolkit while its window is unloaded, so it may outlive the application object.
template <class T>
T& form() {
  thread_local T object;
  return object;
}

/// A modal window. Its widgets are made at load and destroyed at unload; the object stays.
class Form {
 public:
  enum class frame { fixed, resizable };

  /// Width and height in twips; a window whose controls need more room takes it.
  Form(std::string name, std::string caption, int width, int height,
       frame window_frame = frame::resizable);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  ~Form();

  box body = column({});

  /// Has the keyboard when the window comes up, in place of the one that was declared first. Tab
  /// goes from one to the next in the order of their declaration.
  Control* first_stop = nullptr;

  std::function<void()> on_load;
  std::function<void()> on_unload;
  /// What the frame's close box does, and Esc; without it they unload the form.
  std::function<void()> on_close;
  /// Off in windows for longer work: Esc also cancels what an input method has half composed, and
  /// is easily pressed once too often.
  bool esc_closes = true;
  /// Runs after a failure that an event let through has been shown: brings the view in step again.
  std::function<void()> on_failure;
  /// Sees each key before the control that has the focus. Setting the code to 0 swallows the key.
  /// `shift` is a sum of 1 for Shift, 2 for Ctrl and 4 for Alt.
  std::function<void(int& key_code, int shift)> on_key_down;

  /// Makes the widgets and runs on_load. A failure of on_load unloads the form again and goes on
  /// to the caller. Loading a loaded form does nothing.
  void load();
  [[nodiscard]] bool loaded() const { return window_ != nullptr; }

  /// Loads the form if need be and runs it modally; returns when it has been unloaded. If the host
  /// ends the windows, each is closed as by its frame, with every question answered by Cancel.
  void show();

  /// What the frame's close box does.
  void close();

  /// Runs on_unload and ends the window; a failure of on_unload reaches the caller afterwards.
  void unload();

  void set_caption(std::string_view caption);

  /// The name of the control that has the keyboard; empty if none has, or only a part of one, which
  /// takes keys of its own.
  [[nodiscard]] std::string active_control() const;

  /// The boundary between the toolkit and the system: runs an event, and shows what it fails with.
  void guarded(const std::function<void()>& event);

  /// The same for a press of a button. Nothing runs if another window came up meanwhile: the
  /// toolkit clicks a button only a moment after a screen reader has pressed it.
  void guarded_press(const std::function<void()>& press);

 private:
  friend class Control;
  friend class window;

  void add(Control& control) { controls_.push_back(&control); }
  void make_widgets();
  void destroy_widgets();
  void close_unasked();

  std::string name_;
  std::string caption_;
  int width_;
  int height_;
  frame frame_;
  std::vector<Control*> controls_;
  std::unique_ptr<window> window_;
  bool unloading_ = false;
};

}  // namespace platform
