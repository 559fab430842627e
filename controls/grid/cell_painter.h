#pragma once

class QAbstractItemDelegate;
class QAbstractItemView;

namespace ta_vorlumine {

/// The role under which a model tells that a cell is a drop-down cell.
constexpr int drop_down_role = 0x0100;

/// Paints the cells of `view`, which owns it: the current cell has a ring instead of a filled
/// ground, so that its text stays as readable as the others; a drop-down cell has its arrow.
[[nodiscard]] QAbstractItemDelegate* make_cell_painter(QAbstractItemView& view);

}  // namespace ta_vorlumine
