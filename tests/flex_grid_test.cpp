#include "controls/grid/flex_grid.h"

#include <QAccessible>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>
#include <QWindow>
#include <stdexcept>

#include "grid_dialog.h"
#include "ink.h"
#include "test_store.h"

namespace {

using flex_grid = harness::grid_dialog;

TEST_F(flex_grid, holds_what_a_record_set_brings) {
  const harness::test_store store;
  ADODB::Connection conn;
  conn.Open(store.connect_string());
  fg.DataSource(conn.Execute("select 'a',null,2.5 union all select 'b',7,3"));
  EXPECT_EQ(fg.Rows(), 3);
  EXPECT_EQ(fg.Row(), -1);
  EXPECT_EQ(fg.TextMatrix(1, 0) + fg.TextMatrix(1, 1) + fg.TextMatrix(1, 2), "a");
  EXPECT_EQ(fg.TextMatrix(2, 2) + fg.TextMatrix(1, 3), "72.5");
  EXPECT_THROW(static_cast<void>(fg.TextMatrix(3, 1)), std::runtime_error);
  EXPECT_THROW(static_cast<void>(fg.TextMatrix(1, 4)), std::runtime_error);
  EXPECT_THROW(fg.TextMatrix(-1, 1, ""), std::runtime_error);
  EXPECT_THROW(fg.RemoveItem(0), std::runtime_error);
  EXPECT_THROW(fg.RemoveItem(3), std::runtime_error);
  EXPECT_THROW(fg.Row(3), std::runtime_error);
  EXPECT_THROW(fg.ColComboList(method, "1;word"), std::runtime_error);
  fg.DataSource(conn.Execute("select 1,2,3,4,5"));
  EXPECT_EQ(fg.TextMatrix(1, 5), "5");
  fg.Cols(9);
  EXPECT_EQ(fg.TextMatrix(1, 8), "");
}

TEST_F(flex_grid, shows_words_and_headings_to_screen_readers_and_fills_its_width) {
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view());
  EXPECT_EQ(table->text(QAccessible::Name), "比較値の一覧");
  QAccessibleInterface* cell = table->tableInterface()->cellAt(0, shown(method));
  EXPECT_EQ(cell->text(QAccessible::Name), "先頭一致");
  EXPECT_EQ(fg.TextMatrix(1, method), "2");
  const QAccessibleInterface* heading = table->child(shown(method) + 1);  // behind the corner
  EXPECT_EQ(heading->role(), QAccessible::ColumnHeader);
  EXPECT_EQ(heading->text(QAccessible::Name), "比較方法");
  EXPECT_EQ(table->tableInterface()->columnCount(), 2) << "the hidden ones are not there";
  const QVariant alignment = view().model()->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole);
  EXPECT_TRUE(alignment.value<Qt::Alignment>().testFlag(Qt::AlignLeft));
  fg.ColHidden(2, false);
  EXPECT_EQ(table->tableInterface()->columnCount(), 3);
  fg.ColHidden(2, true);

  fg.ColWidth(value, 1500);
  fg.ColWidth(method, 1500);
  EXPECT_NEAR(view().columnWidth(shown(value)), view().columnWidth(shown(method)), 1)
      << "spare room is shared";
  EXPECT_EQ(view().columnWidth(shown(value)) + view().columnWidth(shown(method)),
            view().viewport()->width());
  fg.ColWidth(method, 15000);
  EXPECT_GE(view().columnWidth(shown(method)), 1000);
}

TEST_F(flex_grid, hints_at_a_text_that_its_cell_cuts_off) {
  const auto hint = [this] {
    QWidget& cells = *view().viewport();
    QHelpEvent pointing(QEvent::ToolTip, place(1, value), cells.mapToGlobal(place(1, value)));
    QApplication::sendEvent(&cells, &pointing);
    return QToolTip::text().toStdString();
  };
  EXPECT_EQ(hint(), "");
  const std::string long_text(100, 'x');
  fg.TextMatrix(1, value, long_text);
  EXPECT_EQ(hint(), long_text);
  QToolTip::hideText();
}

TEST_F(flex_grid, shows_lines_between_cells_arrows_on_drop_downs_and_where_the_keyboard_is) {
  fg.Row(1);
  const auto cell = [this](int row, int col) {
    return view().visualRect(view().model()->index(row - 1, shown(col)));
  };
  const auto has_ink = [&](const QRect& where) {
    return harness::has_ink(*view().viewport(), where);
  };
  const auto inside = [&](int row, int col) {
    return has_ink(cell(row, col).adjusted(2, 2, -3, -3));
  };
  EXPECT_TRUE(inside(2, value)) << "a text";
  EXPECT_FALSE(inside(3, value));
  EXPECT_TRUE(inside(3, method)) << "an arrow";
  const QRect empty = cell(3, value);
  EXPECT_TRUE(has_ink({empty.topRight() + QPoint(0, 5), QSize(1, 1)}));
  EXPECT_TRUE(has_ink({empty.bottomLeft() + QPoint(5, 0), QSize(1, 1)}));
  const QImage with_keyboard = view().viewport()->grab(cell(1, value)).toImage();
  ok_button().setFocus();
  const QImage without = view().viewport()->grab(cell(1, value)).toImage();
  fg.Row(2);
  EXPECT_NE(with_keyboard, without);
  EXPECT_NE(without, view().viewport()->grab(cell(1, value)).toImage());
}

TEST_F(flex_grid, keeps_the_columns_as_the_user_drags_them_and_the_current_row_in_sight) {
  QWindow& handle = *view().window()->windowHandle();
  QHeaderView& header = *view().horizontalHeader();
  const QPoint border =
      header.viewport()->mapTo(view().window(), QPoint(header.sectionSize(0) - 1, 5));
  const QPoint narrower = border - QPoint(60, 0);
  const int before = header.sectionSize(0);
  fg.on_row_check = {};
  QEnterEvent enter(border, border, border);
  QApplication::sendEvent(header.viewport(), &enter);
  QTest::mousePress(&handle, Qt::LeftButton, {}, border);
  QTest::mouseMove(&handle, narrower);
  QTest::mouseRelease(&handle, Qt::LeftButton, {}, narrower);
  fg.ColWidth(value, 9000);
  EXPECT_EQ(header.sectionSize(0), before - 60);
  EXPECT_EQ(header.length(), view().viewport()->width()) << "the last one takes the rest";
  for (int rows = 0; rows < 50; ++rows) fg.AddItem("");
  key(Qt::Key_PageDown);
  EXPECT_GT(fg.Row(), 3);
  const auto is_seen = [&] { return view().viewport()->rect().contains(place(fg.Row(), value)); };
  EXPECT_TRUE(is_seen());
  view().scrollToTop();
  type("x");
  EXPECT_TRUE(is_seen() && editor().geometry().contains(place(fg.Row(), value)));
}

TEST_F(flex_grid, is_filled_by_keyboard_alone) {
  fg.Row(3);
  type("new");
  EXPECT_TRUE(in_edit());
  key(Qt::Key_Return);
  EXPECT_EQ(cell(), "3,3");
  type("3");
  EXPECT_EQ(fg.TextMatrix(3, value) + fg.TextMatrix(3, method), "new3");
  ASSERT_EQ(fg.Rows(), 5) << "the row check has made the next blank row";
  key(Qt::Key_Return);
  EXPECT_EQ(cell(), "4,1");
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(cell(), "3,3");
  key(Qt::Key_Up);
  EXPECT_EQ(cell(), "2,3");
  EXPECT_EQ(checked.back(), 2);
  EXPECT_EQ(seen_by_ok, "not pressed") << "Enter is the grid's, not the standard button's";
}

TEST_F(flex_grid, tells_typing_over_a_cell_from_editing_it) {
  fg.Row(1);
  key(Qt::Key_F2);
  type("d");
  key(Qt::Key_Down);
  EXPECT_EQ(fg.TextMatrix(1, value), "abcd");
  EXPECT_EQ(cell(), "2,1");
  type(" ");
  EXPECT_EQ(fg.EditText(), " ");
  key(Qt::Key_Escape);
  EXPECT_EQ(fg.TextMatrix(2, value), "xyz");
  EXPECT_EQ(closed, 0);
  key(Qt::Key_Escape);
  EXPECT_EQ(closed, 1) << "without an edit Esc is the dialog's";
}

TEST_F(flex_grid, lets_the_keyboard_out_at_both_ends_and_in_the_middle) {
  fg.Row(3);
  key(Qt::Key_Tab);
  type("1");
  fg.TextMatrix(3, method, "");
  key(Qt::Key_Tab);
  EXPECT_EQ(window.active_control(), "Command1");
  fg.Row(-1);
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(cell(), "1,1");
  type("edited");
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(window.active_control(), "Command1");
  EXPECT_EQ(fg.TextMatrix(1, value), "edited");
  view().setFocus();
  type("taken");
  key(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(window.active_control(), "Command1");
  EXPECT_EQ(fg.TextMatrix(1, value), "taken");
}

TEST_F(flex_grid, keeps_a_refused_cell_in_edit_whatever_would_take_it) {
  refuse_texts_longer_than(3);
  fg.Row(1);
  type("long");
  const std::vector<std::function<void()>> attempts{
      [] { key(Qt::Key_Return); }, [] { key(Qt::Key_Tab); },
      [this] { QTest::mouseClick(&ok_button(), Qt::LeftButton); }, [this] { click(2, method); },
      [this] { EXPECT_FALSE(fg.commit_edit()); }};
  for (const auto& attempt : attempts) {
    answering("too long", attempt);
    EXPECT_TRUE(in_edit() && editor().hasFocus());
    EXPECT_EQ(cell(), "1,1");
  }
  EXPECT_EQ(seen_by_ok, "not pressed");
  EXPECT_EQ(fg.TextMatrix(1, value), "abc");
  key(Qt::Key_Backspace);
  QTest::mouseClick(&ok_button(), Qt::LeftButton);
  EXPECT_EQ(seen_by_ok, "lon") << "a click that is not refused counts, and finds the text taken";
}

TEST_F(flex_grid, takes_what_the_validation_puts_in_its_place) {
  fg.on_validate_edit = [this](int, int, bool&) {
    platform::message("no date");
    fg.EditText("2005/01/31");
  };
  fg.Row(1);
  type("soon");
  answering("no date", [this] { QTest::mouseClick(&ok_button(), Qt::LeftButton); });
  EXPECT_EQ(fg.TextMatrix(1, value), "2005/01/31");
  EXPECT_FALSE(in_edit());
  EXPECT_EQ(seen_by_ok, "not pressed") << "the release of the press went to the message";
  view().setFocus();
  fg.on_validate_edit = [](int, int, bool&) { throw std::runtime_error("broken"); };
  type("x");
  answering("broken", [] { key(Qt::Key_Return); });
  EXPECT_TRUE(in_edit());
}

TEST_F(flex_grid, opens_drop_downs_with_one_click_and_texts_with_the_second) {
  click(2, value);
  EXPECT_EQ(cell(), "2,1");
  EXPECT_FALSE(in_edit());
  QTest::mousePress(view().viewport(), Qt::LeftButton, {}, place(2, value));
  QMouseEvent passing(QEvent::MouseMove, place(1, value), place(1, value), Qt::NoButton,
                      Qt::LeftButton, {});
  QApplication::sendEvent(view().viewport(), &passing);
  QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, place(1, value));
  EXPECT_EQ(cell(), "2,1") << "what the pointer passes is not chosen";
  EXPECT_FALSE(in_edit()) << "the pointer was taken elsewhere to be let go";
  click(2, value);
  EXPECT_TRUE(in_edit());
  type("!");
  click(1, method);
  EXPECT_TRUE(fg.TextMatrix(2, value).find('!') != std::string::npos);
  ASSERT_TRUE(list().isVisible());
  EXPECT_EQ(list().currentItem()->text(), "先頭一致");
  const QPoint last = list().visualItemRect(list().item(2)).center();
  QTest::mouseMove(list().viewport(), last);
  EXPECT_EQ(list().currentRow(), 2) << "the choice follows the pointer";
  QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, last);
  EXPECT_EQ(fg.TextMatrix(1, method), "3");
  EXPECT_FALSE(list().isVisible());
  click(1, value);
  QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, place(1, value));
  QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, place(1, value));
  EXPECT_TRUE(in_edit());
}

TEST_F(flex_grid, picks_from_the_list_by_keys) {
  fg.Row(1);
  key(Qt::Key_Tab);
  key(Qt::Key_Down, Qt::AltModifier);
  key(Qt::Key_Down);
  key(Qt::Key_Return);
  EXPECT_EQ(fg.TextMatrix(1, method), "3");
  key(Qt::Key_Space);
  key(Qt::Key_Up);
  EXPECT_TRUE(list().isVisible());
  EXPECT_EQ(list().accessibleName(), "比較方法");
  EXPECT_EQ(list().count(), 3);
  key(Qt::Key_Up, Qt::AltModifier);
  EXPECT_FALSE(list().isVisible());
  key(Qt::Key_Space);
  key(Qt::Key_Escape);
  EXPECT_EQ(fg.TextMatrix(1, method), "3");
  EXPECT_EQ(closed, 0);
  key(Qt::Key_F2);
  type("1");
  EXPECT_EQ(fg.TextMatrix(1, method), "1");
  for (const auto& [typed, number] : {std::pair{"完", "3"}, {"外", "3"}, {"部", "1"}}) {
    // As an input method sends a key of a kana keyboard.
    QKeyEvent letter(QEvent::KeyPress, 0, Qt::NoModifier, typed);
    QApplication::sendEvent(QApplication::focusWidget(), &letter);
    EXPECT_EQ(fg.TextMatrix(1, method), number);
  }
  fg.on_validate_edit = [this](int, int, bool& cancel) { cancel = fg.EditText() == "先頭一致"; };
  type("2");
  EXPECT_EQ(fg.TextMatrix(1, method), "1");
  EXPECT_TRUE(list().isVisible()) << "a refused choice is made again";
  fg.on_validate_edit = [this](int, int, bool&) { fg.EditText("完全一致"); };
  type("1");
  EXPECT_EQ(fg.TextMatrix(1, method), "3");
}

TEST_F(flex_grid, stands_rows_that_come_and_go_in_the_row_check) {
  fg.Row(1);
  key(Qt::Key_Delete);
  EXPECT_EQ(fg.Rows(), 3) << "the emptied row went";
  EXPECT_EQ(fg.TextMatrix(1, value), "xyz");
  key(Qt::Key_Backspace);
  key(Qt::Key_Return);
  EXPECT_EQ(fg.Rows(), 2);
  EXPECT_EQ(cell(), "1,1") << "nothing is skipped";
  fg.AddItem("");
  fg.AddItem("");
  fg.Row(2);
  fg.RemoveItem(2);
  EXPECT_EQ(fg.Row(), 2) << "the row behind";
  fg.RemoveItem(2);
  EXPECT_EQ(fg.Row(), 1) << "there is none behind";

  fg.RemoveItem(1);
  checked.clear();
  QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, QPoint(20, 60));
  EXPECT_EQ(checked, std::vector<int>{-1});
  EXPECT_EQ(fg.Rows(), 2);
  fg.RemoveItem(1);
  ok_button().setFocus();
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(fg.Rows(), 2) << "the keyboard finds a row too";
  type("typed");
  fg.AddItem("");
  fg.RemoveItem(2);
  EXPECT_TRUE(in_edit());
  fg.RemoveItem(1);
  EXPECT_FALSE(in_edit());
  EXPECT_TRUE(fg.commit_edit());
}

TEST_F(flex_grid, takes_a_press_for_the_cell_that_stood_there_though_its_edit_empties_a_row) {
  const auto empty_first_row = [this] {
    fg.Row(1);
    key(Qt::Key_Backspace);  // an edit that begins with nothing
    ASSERT_TRUE(in_edit());
  };
  empty_first_row();
  click(2, value);
  EXPECT_EQ(cell() + fg.TextMatrix(1, value), "1,1xyz");
  EXPECT_FALSE(in_edit());
  empty_first_row();
  QTest::mouseClick(&ok_button(), Qt::LeftButton);
  EXPECT_EQ(fg.Row(), -1) << "a button that deletes was meant for the row that went";
}

TEST_F(flex_grid, begins_anew_with_each_load_and_shows_a_failing_row_check) {
  fg.EditMaxLength(1);
  close();
  open();
  fg.on_row_check = [] { throw std::runtime_error("store gone"); };
  type("long");
  answering("store gone", [this] { EXPECT_TRUE(fg.commit_edit()); });
  EXPECT_EQ(fg.TextMatrix(1, value), "long");
}

}  // namespace
