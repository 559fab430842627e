#include "platform/choice_list.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

namespace platform {

choice_list::choice_list() {
  setUniformItemSizes(true);
}

void choice_list::keyboardSearch(const QString& typed) {
  const auto text_of = [this](int row) { return model()->index(row, 0).data().toString(); };
  const int found = search_.find(typed, currentIndex().row(), model()->rowCount(), text_of);
  if (found >= 0) setCurrentIndex(model()->index(found, 0));
}

void choice_list::inputMethodEvent(QInputMethodEvent* event) {
  composed_.show_composition(*event, visualRect(currentIndex()));
  if (!event->commitString().isEmpty()) keyboardSearch(event->commitString());
}

QVariant choice_list::inputMethodQuery(Qt::InputMethodQuery query) const {
  return composed_.answer(query, visualRect(currentIndex()));
}

}  // namespace platform
