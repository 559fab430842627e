#pragma once

#include <QListView>

#include "platform/composition_label.h"
#include "platform/typed_search.h"

namespace platform {

/// The list of a drop-down list, open or not: finds entries by what is typed or composed.
class choice_list : public QListView {
 public:
  choice_list();

  void keyboardSearch(const QString& typed) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 private:
  typed_search search_;
  composition_label composed_{*this, *viewport()};
};

}  // namespace platform
