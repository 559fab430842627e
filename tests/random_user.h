#pragma once

#include <cstdint>
#include <random>
#include <utility>

#include "window_player.h"

namespace harness {

/// Presses, clicks, types, pastes, drags, answers and closes whatever is there, at random; the same
/// seed on the same store does the same. A text that no user should ever read ends the process.
class random_user : public window_player {
 public:
  explicit random_user(std::uint64_t seed) : seed_(seed), random_(seed) {}

  /// Runs before each turn.
  std::function<void()> look = [] {};
  /// Hears of each action before it is done.
  std::function<void(const std::string& action)> tell = [](const std::string&) {};
  /// For a store out of order: no text is a defect.
  bool reads_anything = false;

  /// Opens the title browser over the store, again whenever it was closed, for so many turns; then
  /// leaves all windows.
  void walk(const std::string& connect_string, int turns);

  /// The browser's tree was loaded and nothing has been done in it since.
  [[nodiscard]] bool is_fresh() const { return fresh_; }

 private:
  using choice = std::pair<int, std::function<void()>>;  // weight and action

  void take_turn(QWidget& top) override;
  [[nodiscard]] std::string name() const override;
  void note(const std::string& action) override;
  void do_something(QWidget& top);
  void go(QWidget& top);
  void answer(QWidget& box);
  void use_file_dialog(QWidget& top);

  void press_any();
  void type_any();
  void choose_any();
  void use_grid();
  void click_any_node(bool twice);
  void drag_any_node();
  void press_any_key();
  void use_menu();
  void search_any();
  void paste_any();
  void resize_any(QWidget& top);
  void change_font();
  void close_by_frame(QWidget& top);

  void pick(const std::vector<choice>& choices);
  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  template <class List>
  const auto& any_of(const List& list) {
    return list[random_() % list.size()];
  }
  std::string any_text(bool of_grid);

  std::uint64_t seed_;
  std::mt19937_64 random_;
  int done_ = 0;
  int wanted_ = 0;
  bool fresh_ = false;
};

}  // namespace harness
