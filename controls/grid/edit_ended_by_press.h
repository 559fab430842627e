#pragma once

#include <QObject>

#include "controls/grid/grid_cursor.h"
#include "controls/grid/grid_edit.h"

class QTableView;

namespace ta_vorlumine {

/// Takes the open edit when the user presses anything in the window of `view` but the editor.
class edit_ended_by_press : public QObject {
 public:
  edit_ended_by_press(QTableView& view, grid_edit& edit, grid_cursor& cursor);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  [[nodiscard]] bool swallows(const QWidget& target, QPoint position);

  QTableView& view_;
  grid_edit& edit_;
  grid_cursor& cursor_;
  bool blocked_ = false;  // a message came up since the last press
};

}  // namespace ta_vorlumine
