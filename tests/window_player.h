#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace harness {

/// Somebody who uses the windows: the one place that drives their modal loops. Whenever the window
/// on top waits for input, take_turn() is called. If what it does opens another window, it returns
/// when that one has gone, and is called for the windows above meanwhile.
class window_player {
 public:
  window_player() = default;
  window_player(const window_player&) = delete;
  window_player& operator=(const window_player&) = delete;
  virtual ~window_player() = default;

  /// The one that plays right now, null if nobody does.
  [[nodiscard]] static window_player* playing();
  /// Keeps in mind what is done, to be told when something goes wrong.
  virtual void note(const std::string& action);
  /// Ends the process with what was done last: modal loops can't be left in good order.
  [[noreturn]] void give_up(const std::string& why) const;

 protected:
  /// Runs `open`, which returns when all windows have gone.
  void play(const std::function<void()>& open);
  virtual void take_turn(QWidget& top) = 0;
  /// Who this is, for the message of give_up().
  [[nodiscard]] virtual std::string name() const = 0;

 private:
  void tick();

  std::vector<QWidget*> at_work_;
  std::deque<std::string> last_actions_;
  long long idle_since_ = 0;
};

/// Opens the title browser, and returns when all windows have gone.
void show_browser(const std::string& connect_string);
/// The object name of a window, the text of a message.
[[nodiscard]] std::string name_of(const QWidget* window);
/// Leaves a window by its own button: close, exit or Cancel.
void leave(const QWidget& window);

/// A message without the sentence for the user above the engine's own text, if it has one.
[[nodiscard]] inline std::string engine_text(const std::string& message) {
  const auto end = message.rfind("\n\n");
  return end == std::string::npos ? message : message.substr(end + 2);
}

}  // namespace harness
