#pragma once

#include <QTableView>
#include <QTreeView>
#include <functional>
#include <string>
#include <vector>

namespace harness {

class test_store;

/// Runs `open`, which returns when all windows have gone, while the script does what a user does in
/// them, with the functions below. A window that the script doesn't expect ends the process.
void play(const std::function<void()>& open, const std::function<void()>& script);
/// The same with the title browser of the store. The editor and the browser, where the script ends
/// in them, are left by their own buttons.
void browse(const test_store& store, const std::function<void()>& script);
/// The same with the editor, opened on a definition by its title.
void edit(const test_store& store, const std::string& title, const std::function<void()>& script);

// The window on top.

QWidget& top_window();
/// This window is on top, or this message, with one button or two; the messages are answered.
void in(const std::string& window);
void message(const std::string& text);
void question(const std::string& text, bool ok);
/// Presses OK on whatever message is on top, and gives its text.
std::string read_message();

// What the user does in it. Each returns when the windows wait again, that below when this one was
// closed, and raises std::runtime_error if the thing isn't there or is off. A script wraps anything
// else that may open or close a window into act().

void act(const std::function<void()>& action);
/// Presses a button of the window or its toolbar, by object name ("Command1", "addf").
void press(const std::string& button);
/// Replaces the content of a text box by what is typed; any characters.
void type(const std::string& text_box, const std::string& text);
void choose(const std::string& combo, const std::string& item);
/// Commits a text to where the keyboard is, as an input method does, and leaves another unfinished.
void compose(const std::string& text, const std::string& unfinished = {});
void key(int toolkit_key, Qt::KeyboardModifiers held = {});
/// Clicks the node with this text; a path "営業/宛名" where one text is not enough.
void click_node(const std::string& path);
void click_node(const QModelIndex& node);
/// Opens the menu of the node that has the keyboard, and chooses the entry that begins so; gives
/// the entries, separated by blanks. Without a text it only looks; `look` is run while it is open.
std::string menu(const std::string& entry = {}, const std::function<void()>& look = {});
void double_click_node(const QModelIndex& node);
/// To be called before anything is dragged: without a display the toolkit's drags end as they
/// begin.
void let_drags_run();
/// Moves the node to the other with the mouse, which may rest there until something has come.
void drag_node(const QModelIndex& source, const QModelIndex& target,
               const std::function<bool()>& rest = {});
void drag_node(const std::string& source, const std::string& target);
/// Fills a cell of the grid, whose rows count from 1: types a text, or picks an entry of a
/// drop-down by its number.
void fill_cell(int row, int column, const std::string& text);
/// The same without the key that takes what was typed.
void begin_cell(int row, int column, const std::string& text);
void click_cell(int row, int column);

// What the user sees.

/// The window and the menu that it has opened, into a PNG file; false if that can't be written.
[[nodiscard]] bool save_picture(const std::string& file);
[[nodiscard]] bool is_enabled(const std::string& control);
/// The toolbar buttons that are on, in order, separated by blanks.
[[nodiscard]] std::string enabled_buttons();
[[nodiscard]] std::string text_of(const std::string& control);
[[nodiscard]] std::string focused_control();
/// The tree as indented lines of node texts.
[[nodiscard]] std::vector<std::string> tree_lines();
/// The pictures of all nodes, from the top, by the names of their files.
[[nodiscard]] std::vector<std::string> pictures();
/// What a screen reader is told that each node is, from the top.
[[nodiscard]] std::vector<std::string> kinds();
[[nodiscard]] std::string selected_node();
/// The texts of a grid's column from the first row to the last.
[[nodiscard]] std::vector<std::string> grid_column(int column);

// The widgets themselves.

[[nodiscard]] QWidget& control(const std::string& name);
[[nodiscard]] QTreeView& tree();
[[nodiscard]] QTableView& grid();
[[nodiscard]] QModelIndex node(const std::string& path);
/// From the top, each before its children.
[[nodiscard]] std::vector<QModelIndex> all_nodes();

}  // namespace harness
