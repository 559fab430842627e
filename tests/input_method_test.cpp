#include <gtest/gtest.h>
#include <private/qinputmethod_p.h>
#include <qpa/qplatforminputcontext.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QToolTip>
#include <utility>

#include "controls/grid/flex_grid.h"
#include "controls/tree/ss_tree.h"
#include "platform/combo_box.h"
#include "platform/command_button.h"
#include "platform/form.h"
#include "platform/text_box.h"
#include "platform/toolkit_peer.h"

namespace {

/// What becomes of a composition that is broken off.
enum class manner { sent_at_once, sent_late_and_again, never_sent };

/// An input method that composes whatever it is told to, in the place of the real one.
class stand_in : public QPlatformInputContext {
 public:
  explicit stand_in(manner manner) : manner_(manner) {
    QInputMethodPrivate::get(QGuiApplication::inputMethod())->testContext = this;
    connect(qApp, &QGuiApplication::focusObjectChanged, this, [this] { break_off(); });
  }
  ~stand_in() override {
    QInputMethodPrivate::get(QGuiApplication::inputMethod())->testContext = nullptr;
  }

  void commit() override { break_off(); }
  void reset() override { break_off(); }

  void type(const QString& half) {
    EXPECT_TRUE(is_let_in()) << "the letters of " << half.toStdString() << " come as keys";
    if (!half.isEmpty()) half_ = half;  // one that is given up isn't forgotten
    composing_in_ = QGuiApplication::focusObject();
    send(composing_in_, half, {});
  }
  void convert(const QString& whole) {
    half_ = whole;  // forgotten only once it is sent
    send(QGuiApplication::focusObject(), {}, whole);
    half_.clear();
  }
  [[nodiscard]] bool has_forgotten() const { return half_.isEmpty(); }
  static bool is_let_in() {
    return QGuiApplication::inputMethod()->queryFocusObject(Qt::ImEnabled, {}).toBool();
  }

 private:
  static void send(QObject* to, const QString& half, const QString& whole) {
    QInputMethodEvent event(half, {});
    event.setCommitString(whole);
    if (to) QCoreApplication::sendEvent(to, &event);
  }
  void break_off() {
    if (half_.isEmpty()) return;
    const QString text = half_;
    if (manner_ == manner::sent_at_once) send(composing_in_, {}, text);
    half_.clear();
    if (manner_ != manner::sent_late_and_again) return;
    for (int times = 0; times < 2; ++times) {
      const auto late = [text] { send(QGuiApplication::focusObject(), {}, text); };
      QMetaObject::invokeMethod(this, late, Qt::QueuedConnection);
    }
  }

  manner manner_;
  QString half_;
  QPointer<QObject> composing_in_;
};

class InputMethod : public testing::TestWithParam<manner> {
 protected:
  InputMethod() {
    window.body = platform::column({Text1, fg, SSTree1, Combo1, Command1});
    window.on_load = [this] { fill(); };
    fg.on_row_check = [this] {
      if (fg.Rows() == 1) fg.AddItem("");
    };
    SSTree1.on_node_click = [this](const ta_vorlumine::Node& node) { clicked += node.Text(); };
    Command1.on_click = [this] { seen = Text1.text(); };
    window.load();
    QWidget& shown = *fg.peer().widget->window();
    shown.show();
    shown.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
  }
  ~InputMethod() override {
    fg.peer().widget->window()->hide();
    window.unload();
  }

  void fill() {
    fg.FormatString("#Rec|<比較値|<比較方法");
    fg.Editable(2);
    fg.ColHidden(0, true);
    fg.ColComboList(2, "#1;部分一致|#2;先頭一致");
    fg.AddItem("\told\t1");
    fg.AddItem("\tkept\t1");
    for (const char* name : {"東京", "大阪", "ふりがな"}) SSTree1.Nodes.Add(name, name);
    Combo1.AddItem("氏名");
    Combo1.AddItem("フリガナ");
  }

  void click(platform::Control& control, QPoint place = QPoint(5, 5)) {
    auto* area = control.peer().widget->findChild<QWidget*>("qt_scrollarea_viewport");
    QTest::mouseClick(area ? area : control.peer().widget, Qt::LeftButton, {}, place);
    QApplication::processEvents();
  }
  void click_cell(int row, int column) {  // the first column is not shown
    auto& view = platform::as<QTableView>(fg.peer());
    click(fg, view.visualRect(view.model()->index(row - 1, column - 1)).center());
  }
  static QRect candidates() {
    return QGuiApplication::inputMethod()->queryFocusObject(Qt::ImCursorRectangle, {}).toRect();
  }

  platform::Form window{"dialog", "", 6000, 9000};
  platform::TextBox Text1{window, "Text1"};
  ta_vorlumine::VSFlexGrid fg{window, "fg", "比較値の一覧"};
  ta_vorlumine::SSTree SSTree1{window, "SSTree1", "一覧"};
  platform::ComboBox Combo1{window, "Combo1"};
  platform::CommandButton Command1{window, "Command1", "OK"};
  std::string seen;
  std::string clicked;
  stand_in method{GetParam()};
};

TEST_P(InputMethod, LeavesWhatTheUserSeesInABoxOnce) {
  Text1.set_focus();
  method.type("とう");
  EXPECT_EQ(Text1.text(), "とう");
  EXPECT_TRUE(method.has_forgotten()) << "the next letter would bring it again";
  method.type("きょう");
  click(Command1);
  EXPECT_EQ(seen, "とうきょう");
  EXPECT_EQ(Text1.text(), "とうきょう");
  Text1.set_focus();
  method.type("えき");
  click(SSTree1);
  EXPECT_EQ(Text1.text(), "とうきょうえき");
  EXPECT_EQ(clicked, "東京") << "what comes late is no search in the tree";

  Text1.set_focus();
  method.type("と");
  method.type("");
  QFocusEvent leave(QEvent::FocusAboutToChange);
  QCoreApplication::sendEvent(Text1.peer().widget->window()->windowHandle(), &leave);
  EXPECT_EQ(Text1.text(), "とうきょうえきと") << "another program's window took it away";
}

TEST_P(InputMethod, StartsOnACellAndEndsInIt) {
  click_cell(1, 1);
  const auto is_at_cell = [this] {
    const auto& view = platform::as<QTableView>(fg.peer());
    const QRect cell = view.visualRect(view.currentIndex()).translated(view.viewport()->pos());
    return cell.contains(candidates());
  };
  EXPECT_TRUE(is_at_cell());
  method.type("と");
  EXPECT_TRUE(is_at_cell());
  method.convert("東");
  const auto around = QGuiApplication::inputMethod()->queryFocusObject(Qt::ImSurroundingText, {});
  EXPECT_EQ(around, "東");
  method.type("きょう");
  EXPECT_TRUE(fg.peer().widget->hasFocus()) << "moving the keyboard would break it off";
  click_cell(2, 1);
  EXPECT_EQ(fg.TextMatrix(1, 1), "東きょう");
  method.type("あ");
  method.type("");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(fg.TextMatrix(2, 1), "kept") << "given up, and nothing came from the other cell";
  EXPECT_FALSE(stand_in::is_let_in()) << "a digit picks an entry of the list";

  click_cell(1, 1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
  method.type("えき");
  EXPECT_TRUE(fg.commit_edit());
  EXPECT_EQ(fg.TextMatrix(1, 1), "東きょうえき");
  while (fg.Rows() > 1) fg.RemoveItem(1);
  method.type("す");
  EXPECT_EQ(fg.Rows(), 2) << "a grid without rows gets one for it";
  method.convert("す");
  EXPECT_TRUE(fg.commit_edit());
  EXPECT_EQ(fg.TextMatrix(1, 1), "す");
}

TEST_P(InputMethod, SearchesWhereNoTextIsTaken) {
  SSTree1.set_focus();
  method.type("東");
  click(Command1);
  EXPECT_EQ(clicked, "") << "nobody saw what a half-composed word would find";
  SSTree1.set_focus();
  method.type("おおさか");
  QWidget& tree = *SSTree1.peer().widget;
  const auto& box = *tree.findChild<QLineEdit*>("search");
  EXPECT_TRUE(box.isVisible());
  EXPECT_TRUE(tree.hasFocus()) << "moving the keyboard would break it off";
  EXPECT_GT(candidates().top(), tree.height() - 40) << "at the box";
  EXPECT_TRUE(SSTree1.SelectedItem().is_empty());
  method.convert("大阪");
  EXPECT_EQ(SSTree1.SelectedItem().Text() + clicked, "大阪大阪");
  click(Command1);
  SSTree1.set_focus();
  method.convert("　");
  EXPECT_EQ(clicked, "大阪大阪") << "the space bar";
  method.type("ふ");
  method.convert("フリ");
  QTest::keyClick(&tree, Qt::Key_Left);
  EXPECT_TRUE(box.hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
  EXPECT_EQ(box.text(), "リ") << "the keys go on where the composition stood";
  EXPECT_EQ(SSTree1.SelectedItem().Text(), "ふりがな");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(tree.hasFocus() && !box.isVisible());
  method.type("お");
  method.type("");
  EXPECT_FALSE(box.isVisible()) << "nothing is left of what was given up";

  Combo1.set_focus();
  const QWidget& combo = *Combo1.peer().widget;
  auto& composed = *combo.findChild<QLabel*>();
  method.type("ふり");
  EXPECT_EQ(Combo1.text(), "");
  EXPECT_EQ(composed.text(), "ふり");
  EXPECT_TRUE(composed.isVisible());
  EXPECT_EQ(composed.size(), QSize(composed.sizeHint().width(), combo.height()));
  const QColor ground = QToolTip::palette().color(QPalette::ToolTipBase);
  EXPECT_EQ(composed.grab().toImage().pixelColor(2, 2), ground) << "it hides what lies below";
  EXPECT_TRUE(combo.rect().contains(candidates()));
  method.convert("ふり");
  EXPECT_FALSE(composed.isVisible());
  EXPECT_EQ(Combo1.text(), "フリガナ");
  auto& open = platform::as<QComboBox>(Combo1.peer());
  open.setCurrentIndex(0);
  open.showPopup();
  method.type("ふり");
  EXPECT_TRUE(open.view()->findChild<QLabel*>()->isVisible());
  method.convert("ふり");
  EXPECT_EQ(open.view()->currentIndex().row(), 1);
}

INSTANTIATE_TEST_SUITE_P(Manners, InputMethod,
                         testing::Values(manner::sent_at_once, manner::sent_late_and_again,
                                         manner::never_sent));

}  // namespace
