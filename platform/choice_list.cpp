#include "platform/choice_list.h"

#include <QInputMethodEvent>
#include <QToolTip>

namespace platform {
namespace {

constexpr int pause = 1500;  // milliseconds after which typing starts anew

/// What two texts have in common when a reader takes them for the same.
QString folded(const QString& text) {
  QString plain = text.normalized(QString::NormalizationForm_KC).toCaseFolded();
  for (QChar& letter : plain) {
    const bool hiragana = letter >= QChar(0x3041) && letter <= QChar(0x3096);
    if (hiragana) letter = QChar(letter.unicode() + 0x60);
  }
  return plain;
}

}  // namespace

choice_list::choice_list() {
  setUniformItemSizes(true);
}

QModelIndex choice_list::find(const QString& wanted, int start, bool anywhere) const {
  const int count = model()->rowCount();
  for (int step = 0; step < count; ++step) {
    const QModelIndex entry = model()->index((start + step) % count, 0);
    const QString text = folded(entry.data().toString());
    if (anywhere ? text.contains(wanted) : text.startsWith(wanted)) return entry;
  }
  return {};
}

// Typing on stays at an entry as long as it fits; the same letter once more goes to the next one.
void choice_list::keyboardSearch(const QString& typed) {
  const bool goes_on = since_last_.isValid() && since_last_.elapsed() < pause;
  const bool again = goes_on && typed_ == folded(typed);
  since_last_.start();
  typed_ = goes_on ? typed_ + folded(typed) : folded(typed);
  if (typed_.isEmpty()) return;
  const int here = qMax(0, currentIndex().row());
  const int start = goes_on ? here : currentIndex().row() + 1;
  QModelIndex found = find(typed_, start, false);
  if (!found.isValid()) found = find(typed_, start, true);
  if (!found.isValid() && again) {
    typed_ = folded(typed);
    found = find(typed_, here + 1, false);
  }
  if (found.isValid()) setCurrentIndex(found);
}

// The toolkit turns input methods off where an entry cannot be edited.
void choice_list::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  setAttribute(Qt::WA_InputMethodEnabled);
}

void choice_list::inputMethodEvent(QInputMethodEvent* event) {
  show_composition(*this, *event);
  if (!event->commitString().isEmpty()) keyboardSearch(event->commitString());
}

void show_composition(QWidget& widget, const QInputMethodEvent& event) {
  QToolTip::showText(widget.mapToGlobal(widget.rect().topLeft()), event.preeditString(), &widget);
}

}  // namespace platform
