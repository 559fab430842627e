#include "controls/grid/grid_paste.h"

#include <QClipboard>
#include <QToolTip>

#include "grid_dialog.h"

namespace {

using flex_grid_paste = harness::grid_dialog;

TEST_F(flex_grid_paste, counts_characters_and_cuts_what_is_too_much) {
  fg.EditMaxLength(3);
  fg.Row(1);
  key(Qt::Key_Backspace);
  QGuiApplication::clipboard()->setText("😀あ😀い\r\n");
  key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(fg.EditText(), "😀あ😀");
  EXPECT_EQ(QToolTip::text(), "") << "one too many is seen by whoever types it";
  key(Qt::Key_Home);
  type("z");
  EXPECT_EQ(fg.EditText(), "😀あ😀") << "the typed one goes, not the last one";
  QGuiApplication::clipboard()->setText("12");
  key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(QToolTip::text(), "3文字を超えた部分は入りませんでした。");
  key(Qt::Key_Escape);
  fg.TextMatrix(1, value, "stored long ago");
  key(Qt::Key_F2);
  type("x");
  EXPECT_TRUE(fg.commit_edit());
  EXPECT_EQ(fg.TextMatrix(1, value), "stored long ago");
}

TEST_F(flex_grid_paste, spreads_what_a_spreadsheet_has_copied_over_rows_and_columns) {
  const auto paste = [](const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    key(Qt::Key_V, Qt::ControlModifier);
  };
  fg.Row(3);
  paste("東京都\r\n\"a\"\"b\nc\"\r\n\"d\"\r\n");
  EXPECT_EQ(fg.Rows(), 7) << "three rows came, and a blank one behind them";
  EXPECT_EQ(fg.TextMatrix(3, value) + fg.TextMatrix(4, value) + fg.TextMatrix(5, value),
            "東京都a\"b c\"d\"");
  EXPECT_EQ(fg.TextMatrix(5, method), "1");
  fg.Row(1);
  key(Qt::Key_F2);
  paste("x\t完全一致\tfar\n\t1\n");
  EXPECT_EQ(fg.TextMatrix(1, value) + fg.TextMatrix(1, method), "x3");
  EXPECT_EQ(fg.TextMatrix(2, value) + fg.TextMatrix(2, method), "xyz1");
  refuse_texts_longer_than(3);
  click(1, value);
  answering("too long", [&] { paste("long\nmore\n"); });
  EXPECT_EQ(fg.EditText(), "long");
  EXPECT_EQ(fg.TextMatrix(2, value), "xyz") << "nothing goes on behind what was refused";
  key(Qt::Key_Escape);
  QGuiApplication::clipboard()->clear();
  key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(fg.TextMatrix(1, value), "x");
}

TEST(flex_grid_paste_reader, takes_copied_cells_apart_whatever_is_in_them) {
  const std::size_t rows = ta_vorlumine::copied_cells(QString("a\tb\n") + QChar(0xD83D)).size();
  EXPECT_EQ(rows, 2U) << "half an emoji hides no separator";
  EXPECT_EQ(ta_vorlumine::copied_cells("\"a\nb\"c").size(), 2U) << "no cell in quotes";
  const auto long_cell = ta_vorlumine::copied_cells('"' + QString(200'000, 'x') + "\n\"\tb");
  EXPECT_EQ(long_cell.front().size(), 2U);
}

}  // namespace
