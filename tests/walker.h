#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <random>
#include <string>
#include <vector>

class QWidget;

namespace harness {

/// A user at random, in the real windows: presses, clicks, types, drags, answers and closes
/// whatever is there. The same seed on the same store gives the same deeds. A text that no user
/// should ever read ends the process, with the seed, the number of the deed and the last deeds
/// told.
class walker {
 public:
  explicit walker(std::uint64_t seed) : seed_(seed), random_(seed) {}

  /// Runs before each deed, in a window that waits for the user.
  std::function<void(walker&)> look = [](walker&) {};
  /// Hears of each deed before it is done.
  std::function<void(const std::string& deed)> tell = [](const std::string&) {};

  /// Opens the title browser over the store, again whenever it was closed, until so many deeds are
  /// done; then leaves all windows.
  void walk(const std::string& connect_string, int deeds);

  [[nodiscard]] int deeds() const { return done_; }
  /// The browser's tree was loaded and no deed has been done in it since.
  [[nodiscard]] bool is_fresh() const { return fresh_; }

  [[noreturn]] void give_up(const std::string& why) const;

 private:
  using choice = std::pair<int, std::function<void()>>;  // weight and deed

  void tick();
  void do_something(QWidget& top);
  void leave(QWidget& top);
  void browse_title_tree(QWidget& top);
  void edit_rule_tree(QWidget& top);
  void use_dialog(QWidget& top);
  void answer(QWidget& box);
  void use_file_dialog(QWidget& dialog);

  void press_any(QWidget& top);
  void press_named(const std::string& name);
  void type_any(QWidget& top);
  void choose_any(QWidget& top);
  void use_grid(QWidget& top);
  void click_any_node(QWidget& top, bool twice);
  void drag_any_node(QWidget& top);
  void press_any_key(QWidget& top);
  void close_by_frame(QWidget& top);

  void pick(const std::vector<choice>& choices);
  int below(int bound);
  std::string any_text(bool of_grid);
  void note(const std::string& deed);

  std::uint64_t seed_;
  std::mt19937_64 random_;
  int done_ = 0;
  int wanted_ = 0;
  bool fresh_ = false;
  std::vector<QWidget*> at_work_;
  std::deque<std::string> last_deeds_;
};

}  // namespace harness
