#pragma once

#include <QObject>

namespace platform {

/// Swallows what the user did to the windows, and what would follow from it.
class input_sink : public QObject {
 public:
  /// Handles all events that wait, without those.
  void swallow();

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  /// Whether such an event for `receiver` is to go nowhere.
  [[nodiscard]] virtual bool takes(QObject*, QEvent*) { return true; }
};

}  // namespace platform
