#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server_database.h"
#include "store/connection.h"

class QWidget;

namespace harness {

/// A store made for one test, and a second connection that looks into it: a file in a folder of its
/// own, or a database on the server of the tests where on_server().
class test_store {
 public:
  test_store();
  test_store(const test_store&) = delete;
  test_store& operator=(const test_store&) = delete;
  ~test_store();

  [[nodiscard]] std::string connect_string() const;
  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

  void run(std::string_view statement);
  void run_all(const std::vector<std::string>& statements);
  /// The rows of a select, the columns of a row separated by "|", null as "null".
  [[nodiscard]] std::vector<std::string> rows(std::string_view statement);
  /// The first column of the first row.
  [[nodiscard]] std::string value(std::string_view statement);
  /// The engine's own text on refusing the statement, which it must.
  [[nodiscard]] std::string refusal_of(std::string_view statement);
  /// The sample data, in place of the empty tables.
  void load_sample();
  /// Makes the store refuse `event` ("insert", "update", "delete") on `table` with the text given,
  /// for the rows that meet `when`, a condition on new and old.
  void refuse(const std::string& event, const std::string& table, const std::string& text,
              const std::string& when = "true");
  void stop_refusing();
  /// Lets this object's connection write what the checks of the tables refuse.
  void ignore_checks();

 private:
  std::filesystem::path folder_;
  std::optional<server_database> database_;
  ADODB::Connection connection_;
};

/// Plays a user: a list of windows that must come up, one after the other, with what the user does
/// in each. A window that is not the next one in the list, or one that never comes, ends the test
/// process with a failure, since its modal loops could not be left in good order.
class user {
 public:
  /// The form of this name is on top: do `deed` in it. Several deeds in a row may be in one form.
  user& in(const std::string& form, std::function<void()> deed);
  /// A message of this text is on top; press OK.
  user& message(const std::string& text);
  /// A question of this text is on top; answer it.
  user& question(const std::string& text, bool ok);
  /// Any window: the deed is to deal with QApplication::activeModalWidget() itself.
  user& whatever(const std::string& what, std::function<void()> deed);

  /// Runs `modal`, which returns when the windows are gone; every deed must have been done by then.
  void during(const std::function<void()>& modal);
  /// The same, running the title browser over `store`.
  void browse(const test_store& store);

 private:
  struct step {
    std::string expected;
    std::function<bool(QWidget&)> matches;
    std::function<void()> deed;
  };
  void play();

  std::deque<step> steps_;
  std::vector<QWidget*> at_work_;
  long long waiting_since_ = 0;
};

// What a user does in the window on top. Each fails the test if the thing isn't there or is off.

QWidget& top_window();
/// Presses a button of the window or its toolbar, by object name ("Command1", "addf").
void press(const std::string& button);
[[nodiscard]] bool is_enabled(const std::string& control);
/// The toolbar buttons that are on, in order, separated by blanks.
[[nodiscard]] std::string enabled_buttons();
/// Replaces the content of a text box by what is typed; any characters.
void type(const std::string& text_box, const std::string& text);
[[nodiscard]] std::string text_of(const std::string& control);
void choose(const std::string& combo, const std::string& item);
/// Clicks the node with this text; a path "営業/宛名" where one text is not enough.
void click_node(const std::string& path);
/// The tree as indented lines of node texts.
[[nodiscard]] std::vector<std::string> tree_lines();
[[nodiscard]] std::string focused_control();
/// Moves the node to the other by the toolkit's drag events.
void drag_node(const std::string& from_path, const std::string& to_path);
void key(int toolkit_key, const std::string& modifiers = {});

}  // namespace harness
