#pragma once

#include <memory>

class QWidget;

namespace platform {

class composition_watch;

/// Watches what input methods compose, for as long as a window keeps what this returns.
[[nodiscard]] std::shared_ptr<composition_watch> watch_compositions();

/// Ends a composition that is under way in a watched window: the half-composed text that the user
/// sees goes into its control, once. To be called before a text is read that the user may still be
/// composing. A press of the mouse, a change of the focus, a shortcut and the closing of a window
/// call it before they reach any control.
void finish_composition();

/// Makes finish_composition() drop what is half composed on this control. For controls that are
/// searched by typing: taking the text would choose an entry that the user has not seen.
void drop_compositions(QWidget& control);

}  // namespace platform
