#include "controls/grid/grid_paste.h"

#include <gtest/gtest.h>

#include <QString>

TEST(CopiedCells, AreTakenApartWhateverIsInThem) {
  const std::size_t rows = ta_vorlumine::copied_cells(QString("a\tb\n") + QChar(0xD83D)).size();
  EXPECT_EQ(rows, 2U) << "half an emoji hides no separator";
  const auto long_cell = ta_vorlumine::copied_cells('"' + QString(200'000, 'x') + "\n\"\tb");
  EXPECT_EQ(long_cell.front().size(), 2U);
}
