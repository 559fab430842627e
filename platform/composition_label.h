#pragma once

#include <QLabel>

class QInputMethodEvent;

namespace platform {

/// For controls that show entries and take no text: shows what an input method has half composed,
/// over the current entry. Composing is a search there, so finish_composition() drops the text.
class composition_label : public QLabel {
 public:
  /// `control` receives the events; `area`, it or a part of it, is what the label lies on.
  composition_label(QWidget& control, QWidget& area);

  /// `entry`: where the current entry stands in the area.
  void show_composition(const QInputMethodEvent& event, const QRect& entry);
  /// The answer of `control` to an input method: it may compose, though the toolkit turns it off
  /// for what cannot be edited, and its candidates stand at the label.
  [[nodiscard]] QVariant answer(Qt::InputMethodQuery query, const QRect& entry) const;

 private:
  QWidget& control_;
};

/// Whether a blank was committed, which is what the space bar gives while an input method is on.
[[nodiscard]] bool is_space_bar(const QInputMethodEvent& event);

}  // namespace platform
