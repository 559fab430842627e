#include <QGuiApplication>
#include <QHeaderView>
#include <algorithm>
#include <numeric>
#include <vector>

#include "controls/grid/table_view.h"
#include "platform/fonts.h"

namespace ta_vorlumine {

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

}  // namespace ta_vorlumine
