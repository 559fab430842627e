#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QTest>
#include <string>
#include <vector>

#include "controls/grid/flex_grid.h"
#include "platform/command_button.h"
#include "platform/form.h"
#include "platform/messages.h"
#include "platform/toolkit_peer.h"
#include "store/text.h"
#include "user.h"

namespace harness {

/// A dialog whose grid has a text, a hidden and a drop-down column, and keeps a blank last row.
class grid_dialog : public testing::Test {
 protected:
  static constexpr int value = 1;
  static constexpr int method = 3;

  grid_dialog() {
    window.body = platform::column({fg, ok});
    window.on_load = [this] { fill(); };
    window.on_close = [this] { ++closed; };
    ok.on_click = [this] { seen_by_ok = fg.commit_edit() ? fg.TextMatrix(1, value) : "refused"; };
    fg.on_row_check = [this] { row_check(); };
    open();
  }
  ~grid_dialog() override { close(); }

  void open() {
    window.load();
    using reporting = QAbstractItemModelTester::FailureReportingMode;
    new QAbstractItemModelTester(view().model(), reporting::Fatal, view().model());
    view().window()->show();
    activate();
    view().setFocus();
  }

  void close() {
    view().window()->hide();
    window.unload();
  }

  void fill() {
    fg.FormatString("#Rec|<比較値|sno|<比較方法");
    fg.Editable(2);
    fg.ColComboList(method, "#1;部分一致|#2;先頭一致|#3;完全一致");
    fg.ColHidden(0, true);
    fg.ColHidden(2, true);
    fg.AddItem("\tabc\t1\t2");
    fg.AddItem("\txyz\t2\t1");
    fg.AddItem("");
  }

  void activate() {
    view().window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(view().window()));
  }

  void answering(const std::string& message, const std::function<void()>& action) {
    harness::play(action, [&] { harness::message(message); });
    activate();
  }

  void row_check() {
    checked.push_back(fg.Row());
    const int row = fg.Row();
    if (row == -1) {
      if (fg.Rows() == 1) fg.AddItem("");
      return;
    }
    const bool whole = !fg.TextMatrix(row, value).empty() && !fg.TextMatrix(row, method).empty();
    if (!whole && row != fg.Rows() - 1) fg.RemoveItem(row);
    if (whole && row == fg.Rows() - 1) fg.AddItem("");
    fg.ColWidth(value, 2400);
  }

  void refuse_texts_longer_than(std::size_t length) {
    fg.on_validate_edit = [this, length](int, int col, bool& cancel) {
      if (col != value || ADODB::character_count(fg.EditText()) <= length) return;
      platform::message("too long");
      cancel = true;
    };
  }

  QTableView& view() { return platform::as<QTableView>(fg.peer()); }
  QWidget& ok_button() { return *ok.peer().widget; }
  QLineEdit& editor() { return *view().findChild<QLineEdit*>("cell_editor"); }
  QListWidget& list() { return *view().findChild<QListWidget*>("cell_list"); }
  bool in_edit() { return editor().isVisible(); }

  static void key(Qt::Key code, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), code, held);
  }
  // Each key goes to where the keyboard is by then.
  static void type(const std::string& keys) {
    for (const char key : keys) QTest::keyClick(QApplication::focusWidget(), key);
  }
  static int shown(int col) { return col / 2; }  // every other one is hidden
  QPoint place(int row, int col) {
    return view().visualRect(view().model()->index(row - 1, shown(col))).center();
  }
  void click(int row, int col) {
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, place(row, col));
  }
  std::string cell() {
    return std::to_string(fg.Row()) + "," + std::to_string(2 * view().currentIndex().column() + 1);
  }

  platform::Form window{"dialog", "", 6000, 4000};
  ta_vorlumine::VSFlexGrid fg{window, "fg", "比較値の一覧"};
  platform::CommandButton ok{window, "Command1", "OK", platform::CommandButton::role::standard};
  std::vector<int> checked;
  std::string seen_by_ok = "not pressed";
  int closed = 0;
};

}  // namespace harness
