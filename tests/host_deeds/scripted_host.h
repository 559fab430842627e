#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace host {

/// What the user or the host does, a step each time that another window of any kind comes on top.
using steps = std::deque<std::function<void()>>;

/// From the next application object on, or the one that is there.
void play(steps added);
/// Whether all steps were done.
[[nodiscard]] bool all_done();

/// Presses a button of the window on top.
void press(const char* button);
/// The steps through browser, editor and value dialog to a message, each window over the one
/// before, as far as the `depth`th; then the deed.
[[nodiscard]] steps way_down(int depth, std::function<void()> deed);

/// Runs once the events that wait have been handled, as the host's own timers do.
void soon(std::function<void()> deed);

/// A store of its own for each process.
[[nodiscard]] const std::string& connect_string();
/// The store's titles and rules, as text.
[[nodiscard]] std::string printed_store();

/// Shows the browser, and gives the text of the exception, empty without one.
std::string show();
/// The browser comes up and is closed by its button.
[[nodiscard]] bool shows_again();

}  // namespace host
