#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid/grid_cells.h"

class QRect;
class QWidget;

namespace ta_vorlumine {

/// The list that drops down from a grid's cell. Its window belongs to `owner`.
class cell_list {
 public:
  explicit cell_list(QWidget& owner) : owner_(owner) {}

  /// An entry was chosen; the list is closed by then. Leaving the list otherwise tells nobody.
  std::function<void(const std::string& number)> on_pick;

  /// Opens below `cell`, which is measured on the screen, on the entry of `number`; without it, on
  /// the first. `name` is what a screen reader calls the list.
  void open(const std::vector<choice>& choices, std::string_view number, std::string_view name,
            const QRect& cell);

 private:
  class drop_window;
  class entries;

  void make_window();
  void pick(int place);

  QWidget& owner_;
  drop_window* window_ = nullptr;  // made when it first opens
  entries* list_ = nullptr;
  std::vector<choice> choices_;
};

}  // namespace ta_vorlumine
