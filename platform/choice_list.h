#pragma once

#include <QElapsedTimer>
#include <QListView>

namespace platform {

/// The list of a drop-down list, open or not: finds entries by what is typed, letter after letter
/// or as an input method hands it over. An entry that begins with it goes before one that holds it.
/// Wide and narrow letters are the same, and so are capitals and small letters, hiragana and
/// katakana.
class choice_list : public QListView {
 public:
  choice_list();

  void keyboardSearch(const QString& typed) override;

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  [[nodiscard]] QModelIndex find(const QString& wanted, int start, bool anywhere) const;

  QString typed_;
  QElapsedTimer since_last_;
};

/// Shows at the widget what an input method has composed so far, which a list has no place for.
void show_composition(QWidget& widget, const QInputMethodEvent& event);

}  // namespace platform
