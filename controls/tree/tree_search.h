#pragma once

#include <QFrame>
#include <functional>
#include <optional>

#include "controls/tree/searched_texts.h"

class QInputMethodEvent;
class QLabel;
class QLineEdit;

namespace ta_vorlumine {

/// The search box of a tree, closed at first. It stands where the tree puts it, and finds nodes by
/// any part of their texts, whatever the width, case and kana of the letters.
class tree_search : public QFrame {
 public:
  /// `view` gets the keyboard back when the box closes.
  tree_search(const tree_nodes& nodes, QWidget& view);

  /// Where the search goes on from; null for the top.
  std::function<const tree_node*()> current;
  std::function<void(const tree_node&)> on_hit;
  /// The box has opened or closed.
  std::function<void()> on_shown;

  [[nodiscard]] bool is_open() const { return !isHidden(); }
  /// What is typed next takes the place of what was searched for.
  void open();
  void close_box();
  /// Opens the box with this text, and the keyboard in it.
  void type(const QString& text);
  /// To be told when nodes have come, gone or changed.
  void forget_nodes();

  // An input method may have begun to compose on the tree; moving the keyboard would break that
  // off. So the tree hands the box its events until the next key.

  void compose(QInputMethodEvent& event);
  /// Whether keys that come to the tree are meant for the box.
  bool awaits_keys = false;
  /// Moves the keyboard here with this key, unless a composition is under way.
  void take_key(QKeyEvent& key);
  [[nodiscard]] QVariant answer(Qt::InputMethodQuery query) const;

 private:
  class line;

  void add_button(const QString& name, const QString& hint, Qt::ArrowType arrow,
                  const std::function<void()>& press);
  searched_texts& texts();
  void look();
  void step(bool forward);
  void go_to(std::size_t number);
  void tell(const QString& found);

  const tree_nodes& nodes_;
  QWidget& view_;
  line* line_;
  QLabel* found_;
  std::optional<searched_texts> texts_;
  bool composing_ = false;
};

}  // namespace ta_vorlumine
