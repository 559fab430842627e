#include "controls/grid/grid_view.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTableView>
#include <algorithm>
#include <numeric>
#include <utility>

#include "controls/grid/cell_painter.h"
#include "controls/grid/edit_ended_by_press.h"
#include "controls/grid/grid_cursor.h"
#include "controls/grid/grid_paste.h"
#include "platform/fonts.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {
namespace {

using platform::from_toolkit;

bool is_typed_text(const QKeyEvent& key) {
  const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const QString text = key.text();
  return !(key.modifiers() & commands) && !text.isEmpty() && text.front().unicode() >= u' ' &&
         text.front().unicode() != 0x7f;
}

bool is_enter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool moves_forward(const QKeyEvent& enter) {
  return !enter.modifiers().testFlag(Qt::ShiftModifier);
}

// With many rows the last cell is far for whoever wants to Tab out of the grid.
bool is_way_out(const QKeyEvent& key) {
  return key.modifiers().testFlag(Qt::ControlModifier) &&
         (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab);
}

class table_view : public QTableView, public grid_view {
 public:
  table_view(grid_cells& cells, const grid_edit::events& events);

  QWidget& widget() override { return *this; }
  grid_model& model() override { return model_; }
  using QTableView::edit;  // Clang warns of hiding it
  grid_edit& edit() override { return edit_; }
  [[nodiscard]] int row() const override { return cursor_.row(); }
  void set_row(int row) override { cursor_.set_row(row); }
  void lay_out_columns() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void updateEditorGeometries() override { edit_.place_editor(); }
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  [[nodiscard]] bool is_dragged() const;
  [[nodiscard]] bool takes_compositions() const;
  bool leave_edit();
  bool key_on_cell(const QKeyEvent& key, cell_place cell);
  bool key_in_editor(QKeyEvent& key);

  grid_cells& cells_;
  grid_model model_;
  grid_cursor cursor_;
  grid_edit edit_;
  edit_ended_by_press press_elsewhere_;
  grid_paste paste_;
  bool laying_out_ = false;
  bool dragged_ = false;  // the user has given the columns other widths
  QPersistentModelIndex pressed_;
  bool pressed_again_ = false;  // the pressed cell had been the current one already
};

table_view::table_view(grid_cells& cells, const grid_edit::events& events)
    : cells_(cells),
      model_(cells),
      cursor_(*this, events.taken),
      edit_(*this, cells, model_, {events.refuses, [this] { cursor_.check_row(); }}),
      press_elsewhere_(*this, edit_, cursor_),
      paste_(*this, cells_, model_, edit_, cursor_) {
  setModel(&model_.shown());
  setItemDelegate(make_cell_painter(*this));
  setShowGrid(false);  // the delegate draws it
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setStretchLastSection(true);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this] { dragged_ = dragged_ || (isVisible() && !laying_out_ && is_dragged()); });
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setHighlightSections(false);
  edit_.editor().on_key = [this](QKeyEvent& key) { return key_in_editor(key); };
}

// Room to spare goes to all columns alike; what is left of it, to the last shown one.
// Before the grid is shown each of its settings would lay it out anew.
void table_view::lay_out_columns() {
  model_.choose_columns();
  if (dragged_ || !isVisible()) return;
  std::vector<int> widths;
  for (int i = 0; i < cells_.columns(); ++i) {
    if (cells_.column(i).hidden) continue;
    const int heading = horizontalHeader()->sectionSizeHint(static_cast<int>(widths.size()));
    widths.push_back(std::max(platform::scaled_pixels(cells_.column(i).width), heading));
  }
  const int wanted = std::accumulate(widths.begin(), widths.end(), 0);
  const double growth = wanted == 0 ? 1 : std::max(1.0, 1.0 * viewport()->width() / wanted);
  laying_out_ = true;
  for (std::size_t i = 0; i < widths.size(); ++i)
    setColumnWidth(static_cast<int>(i), static_cast<int>(widths[i] * growth));
  laying_out_ = false;
}

bool table_view::is_dragged() const {
  return QGuiApplication::mouseButtons().testFlag(Qt::LeftButton) &&
         horizontalHeader()->viewport()->underMouse();
}

void table_view::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  lay_out_columns();
}

void table_view::showEvent(QShowEvent* event) {
  constexpr int room_above_and_below = 8;
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + room_above_and_below);
  QTableView::showEvent(event);
  lay_out_columns();
}

// If the row check has removed the row, the user is on the one that took its place, and moving on
// would skip that.
bool table_view::leave_edit() {
  const QPersistentModelIndex cell = currentIndex();
  return edit_.take() && cell.isValid();
}

void table_view::keyPressEvent(QKeyEvent* event) {
  if (edit_.is_open()) {
    // The focus is still here after a composition that began on the cell. Without it, the key has
    // come up from the editor, which had no use for it.
    if (!hasFocus()) return event->ignore();
    edit_.editor().line().setFocus();
    QCoreApplication::sendEvent(&edit_.editor().line(), event);
    return;
  }
  if (event->key() == Qt::Key_Escape) return event->ignore();
  if (is_way_out(*event)) {
    QTableView::focusNextPrevChild(event->key() == Qt::Key_Tab);
    return;
  }
  if (cells_.rows() == 1) cursor_.check_row();
  const QModelIndex cell = currentIndex();
  if (edit_.enabled && cell.isValid() && key_on_cell(*event, model_.place_of(cell))) return;
  QTableView::keyPressEvent(event);
  if (currentIndex() != cell) cursor_.check_row();
}

bool table_view::key_on_cell(const QKeyEvent& key, cell_place cell) {
  const bool drop_key = key.key() == Qt::Key_Space ||
                        (key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier));
  if (key.key() == Qt::Key_F2 || (drop_key && cells_.drops_down(cell.column))) {
    edit_.open(cell);
  } else if (is_enter(key)) {
    cursor_.move_on(moves_forward(key));
  } else if (key.key() == Qt::Key_Delete) {
    edit_.clear(cell);
  } else if (key.key() == Qt::Key_Backspace) {
    cells_.drops_down(cell.column) ? edit_.clear(cell) : edit_.replace(cell, {});
  } else if (key.matches(QKeySequence::Paste)) {
    paste_.run();
  } else if (is_typed_text(key)) {
    edit_.replace(cell, from_toolkit(key.text()));
  } else {
    return false;
  }
  return true;
}

bool table_view::key_in_editor(QKeyEvent& key) {
  if (is_enter(key)) {
    if (leave_edit()) cursor_.move_on(moves_forward(key));
  } else if (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down || is_way_out(key)) {
    if (leave_edit()) keyPressEvent(&key);
  } else if (key.key() == Qt::Key_Escape) {
    edit_.drop();
  } else if (key.matches(QKeySequence::Paste) && grid_paste::has_several_cells()) {
    edit_.drop();
    paste_.run();
  } else {
    return false;
  }
  return true;
}

// Tab comes here from the cells and from the editor.
bool table_view::focusNextPrevChild(bool next) {
  const bool has_cell = currentIndex().isValid();
  if (has_cell && (!leave_edit() || cursor_.move_on(next))) return true;
  return QTableView::focusNextPrevChild(next);
}

void table_view::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  const Qt::FocusReason why = event->reason();
  if (why != Qt::TabFocusReason && why != Qt::BacktabFocusReason) return;
  if (cells_.rows() == 1) cursor_.check_row();
  cursor_.find_cell();
}

// A composition that begins on a cell is shown in the cell's editor, but the focus stays on the
// grid: a change of the focus would end the composition at its first letter. keyPressEvent() moves
// the focus to the editor, with the next key that the input method leaves to the window.
void table_view::inputMethodEvent(QInputMethodEvent* event) {
  const bool composing = !event->preeditString().isEmpty();
  if (!edit_.is_open()) {
    if (!composing && event->commitString().isEmpty()) return event->ignore();
    if (cells_.rows() == 1) cursor_.check_row();
    if (!takes_compositions() || !currentIndex().isValid()) return event->ignore();
    edit_.begin_empty(model_.place_of(currentIndex()));
  }
  QLineEdit& line = edit_.editor().line();
  line.event(event);
  const bool given_up = !composing && line.text().isEmpty();
  if (given_up) edit_.drop();  // the cell keeps what it had
  updateMicroFocus();
}

// Off where a list drops down: its entries are picked by digit, and an input method would turn the
// digit into a composition. On where there are no rows yet: the first letter makes one.
bool table_view::takes_compositions() const {
  const QModelIndex cell = currentIndex();
  return edit_.enabled && !(cell.isValid() && cells_.drops_down(model_.place_of(cell).column));
}

QVariant table_view::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return takes_compositions();
  const QLineEdit& line = edit_.editor().line();
  if (edit_.is_open() && query != Qt::ImCursorRectangle) return line.inputMethodQuery(query);
  if (query != Qt::ImCursorRectangle) return QTableView::inputMethodQuery(query);
  const QPoint corner = viewport()->pos();
  if (!edit_.is_open()) return visualRect(currentIndex()).translated(corner);
  return line.inputMethodQuery(query).toRectF().translated(corner + line.pos());
}

// The input method asks again whether it may compose here.
void table_view::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  updateMicroFocus(Qt::ImQueryAll);
}

void table_view::mousePressEvent(QMouseEvent* event) {
  const QModelIndex cell = indexAt(event->position().toPoint());
  pressed_again_ = cell == currentIndex();
  QTableView::mousePressEvent(event);
  pressed_ = event->button() == Qt::LeftButton ? cell : QModelIndex();
  cursor_.check_row();
}

// The toolkit would take a move with a button held for a wish to select what it passes.
void table_view::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) QTableView::mouseMoveEvent(event);
}

void table_view::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const QPoint place = event->position().toPoint();
  const QPersistentModelIndex cell = std::exchange(pressed_, QPersistentModelIndex());
  if (!cell.isValid() || cell != indexAt(place)) return;
  const cell_place released = model_.place_of(cell);
  if (!cells_.drops_down(released.column) && !pressed_again_) return;
  edit_.open(released);
  edit_.editor().line().selectAll();
}

}  // namespace

grid_view& grid_view::make(grid_cells& cells, const grid_edit::events& events) {
  return *new table_view(cells, events);
}

}  // namespace ta_vorlumine
