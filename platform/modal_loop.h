#pragma once

#include <QDialog>
#include <exception>
#include <functional>

namespace platform {

/// Runs a dialog until it is done, and gives its result. Returns at once, as from a dialog that was
/// cancelled, once the windows are to be left.
int run_modally(QDialog& dialog);

/// The last of the dialogs that run, null without one. The owner for further windows: a window of
/// the host's own, which may be on top, can go away at any time.
[[nodiscard]] QDialog* running_dialog();

/// Runs what lets events of the host's happen. An exception of theirs gets no further: it would
/// pass through code that is not made for it. It ends all windows, and is kept.
void let_events_happen(const std::function<void()>& run);

/// Ends all dialogs that run, the last one first. From here on no other comes up.
void leave_windows(std::exception_ptr because = nullptr);
[[nodiscard]] bool windows_are_left();

/// Lets windows come up again. Gives the exception by which they were left.
[[nodiscard]] std::exception_ptr end_leaving();

}  // namespace platform
