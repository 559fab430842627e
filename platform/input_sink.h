#pragma once

#include <QObject>

namespace platform {

/// Swallows what the user did to the windows, and what would follow from it. What was typed into a
/// text that has had the keyboard since the turn began was meant for what the user saw: it is kept.
class input_sink : public QObject {
 public:
  /// Handles the events that wait; those that the user made go nowhere.
  void swallow();

  bool eventFilter(QObject* receiver, QEvent* event) override;

  /// The windows answer the user from here on.
  static void begin_turn();
  /// Types what was kept, if the text still has the keyboard.
  static void give_back_typing();

 private:
  /// Whether such an event for `receiver` is to go nowhere.
  [[nodiscard]] virtual bool takes(QObject*, QEvent*) { return true; }
};

}  // namespace platform
