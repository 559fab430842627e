#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "store_faults.h"
#include "window_player.h"

class QMessageBox;

namespace harness {

/// What a user does for one command: in each window the next step towards the goal, once more if it
/// failed.
struct swept_command {
  std::string name;
  std::string window;  ///< the one whose step is the command: nothing fails on the way there
  std::string goal;    ///< a select that gives 1 once the command has been done, and 0 before
  std::map<std::string, std::function<void()>> steps;  ///< by the windows' names
  bool takes_rows_away = false;
};

inline void PrintTo(const swept_command& command, std::ostream* out) {
  *out << command.name;
}

/// Each command of the browser, the editor and the dialogs, on the common rules.
[[nodiscard]] std::vector<swept_command> swept_commands();

/// Whether the goal holds, however often.
[[nodiscard]] bool is_reached(const swept_command& command, ADODB::Connection& conn);

/// What goes wrong, and how it is brought about.
struct trouble {
  std::string name;
  std::function<std::unique_ptr<store_faults>(test_store&)> make;
  bool lasts = false;  ///< until the user does something about it
};

inline void PrintTo(const trouble& trouble, std::ostream* out) {
  *out << trouble.name;
}

/// A command played until its goal is reached, while something goes wrong at one occasion. The
/// store is filled anew; making one for each trial costs a server more than the trial.
class fault_trial : public window_player {
 public:
  fault_trial(std::optional<test_store>& store, const trouble& trouble);

  /// A patient user repairs what lasts as soon as it is told, and tries again; another leaves.
  void play_command(const swept_command& command, int number, bool is_patient = true);

  // What is to be judged: all rows, and the shape, but for the counters.
  using rows = std::vector<std::string>;
  rows before, after_failure, after, shape;
  std::string failed;
  bool was_reached = false;   ///< the command has so many occasions
  bool was_told = false;      ///< by the first message after the failure
  bool was_deceived = false;  ///< by a message that all is stored when it wasn't
  rows way;                   ///< windows and messages, as they came

 private:
  [[nodiscard]] rows content();
  void take_turn(QWidget& top) override;
  [[nodiscard]] std::string name() const override;
  void read(QMessageBox& box);
  void do_step(const std::string& window);
  [[nodiscard]] bool is_done();
  [[nodiscard]] bool has_failed() const { return !faults_->failed().empty(); }

  test_store* store_ = nullptr;
  std::unique_ptr<store_faults> faults_;
  const swept_command* command_ = nullptr;
  int number_ = 0;
  bool is_patient_ = true;
  bool is_armed_ = false;
  bool has_left_ = false;
  bool has_read_ = false;
};

}  // namespace harness
