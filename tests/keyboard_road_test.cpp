#include <QApplication>
#include <QKeyEvent>
#include <QTest>

#include "common_rules.h"

using namespace harness;
using rows = std::vector<std::string>;

namespace {

/// Goes on to the control by Tab, as far as the form is long.
void tab_to(const std::string& control) {
  constexpr int longest_form = 40;
  for (int stops = 0; focused_control() != control; ++stops) {
    ASSERT_LT(stops, longest_form) << "Tab never comes to " << control;
    key(Qt::Key_Tab);
  }
}

/// Presses the toolbar's button of this number, as its key does.
void command(int number) {
  key(Qt::Key_0 + number, Qt::AltModifier);
}

void press_with_space(const std::string& button) {
  tab_to(button);
  key(Qt::Key_Space);
}

void add_value(const std::string& title, const std::string& text) {
  in("set_value");
  EXPECT_EQ(focused_control(), "title_txt");
  compose(title);
  tab_to("Text1");
  compose(text);
  press_with_space("Command1");
  in("replace_create");
  EXPECT_EQ(focused_control(), "SSTree1");
}

// The way of somebody without a mouse: every node is reached from where the last dialog left the
// keyboard, and no control is named but to know that Tab has come to it.
TEST(KeyboardRoad, LeadsFromAnEmptyStoreToAFinishedDefinition) {
  test_store store;
  store.run("insert into field values('F1','氏名','T'),('F2','会社名','T')");
  browse(store, [] {
    EXPECT_EQ(focused_control(), "SSTree1");
    key(Qt::Key_Space);  // the root
    tab_to("addf");
    key(Qt::Key_Escape);
    key(Qt::Key_Return);
    compose("営業");
    key(Qt::Key_Return);
    EXPECT_EQ(focused_control(), "SSTree1");
    key(Qt::Key_Space);  // the new folder
    command(4);
    in("replace_create");
    EXPECT_EQ(focused_control(), "Text1");
    key(Qt::Key_Escape);
    compose("敬称");
    key(Qt::Key_Tab);
    compose("会社による敬称");
    key(Qt::Key_Tab);
    EXPECT_EQ(focused_control(), "SSTree1");
    key(Qt::Key_Space);
    command(1);
    in("address_add");
    EXPECT_EQ(focused_control(), "Combo1");
    key(Qt::Key_Space);  // opens the list
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    key(Qt::Key_Down);
    EXPECT_EQ(text_of("Combo1"), "会社名");
    key(Qt::Key_Return);
    EXPECT_EQ(focused_control(), "SSTree1");
    key(Qt::Key_Down);
    command(2);
    in("r_text_cond");
    EXPECT_EQ(focused_control(), "fg");
    compose("山田商店");
    key(Qt::Key_Tab);
    key(Qt::Key_2);  // the entry of that number
    key(Qt::Key_Tab, Qt::ControlModifier);
    press_with_space("Command1");
    message("設定完了！");
    EXPECT_EQ(focused_control(), "SSTree1");
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  会社名", "    山田商店（先頭一致）", "    以外"}));
    key(Qt::Key_Down);
    press_with_space("cond_val_set");
    add_value("得意先", "御中");
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    command(3);
    add_value("その他", "様");
    command(5);
    in("replaceForm");
    EXPECT_EQ(tree_lines(), (rows{"条件設定", "  営業", "    敬称"}));
    EXPECT_EQ(focused_control(), "SSTree1");
    key(Qt::Key_Escape);
    menu("移動する項目にする");
    key(Qt::Key_Home);
    menu("「敬称」をここへ移動");
    EXPECT_EQ(tree_lines(), (rows{"条件設定", "  営業", "  敬称"}));
    press("close");
  });
  EXPECT_EQ(store.rows("select p_replace_no,kind,title,comment from replace order by replace_no"),
            (rows{"0|F|営業|null", "0|C|敬称|会社による敬称"}));
  EXPECT_EQ(store.rows("select p_replace_m_no,use_type,field_id,replace_cond_type,replace_title,"
                       "r_text from replace_m order by replace_m_no"),
            (rows{"0|F|F2|null|null|null", "1|C|null|0|null|null", "1|C|null|1|null|null",
                  "2|R|null|null|得意先|御中", "3|R|null|null|その他|様"}));
  EXPECT_EQ(store.rows("select replace_cond_no,use_type,s_val,s_method from replace_cond"),
            (rows{"1|S|山田商店|2"}));
}

/// Remembers the last key that came to a widget.
class key_watch : public QObject {
 public:
  explicit key_watch(QWidget& watched) { watched.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) last = static_cast<QKeyEvent*>(event)->key();
    return false;
  }
  int last = 0;
};

class SwallowedKeys : public common_rules {
 protected:
  /// Whether the widget with the keyboard gets the key.
  static bool comes_through(Qt::Key pressed, Qt::KeyboardModifiers held) {
    QWidget& target = *QApplication::focusWidget();
    const key_watch watch(target);
    act([&] { QTest::keyClick(&target, pressed, held); });
    return watch.last == pressed;
  }
  static void expect_swallowed_in_tree() {
    tree().setFocus();
    for (const Qt::Key letter : {Qt::Key_X, Qt::Key_C, Qt::Key_V}) {
      EXPECT_FALSE(comes_through(letter, Qt::ControlModifier)) << letter;
      EXPECT_TRUE(comes_through(letter, Qt::ControlModifier | Qt::ShiftModifier)) << letter;
      EXPECT_TRUE(comes_through(letter, Qt::NoModifier)) << letter;
      EXPECT_TRUE(comes_through(letter, Qt::ControlModifier)) << letter << " in the search box";
      key(Qt::Key_Escape);
    }
    for (const Qt::Key digit : {Qt::Key_0, Qt::Key_9})
      EXPECT_FALSE(comes_through(digit, Qt::AltModifier)) << "no button has it";
    // These keys have the codes of the small letters.
    for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::ShiftModifier}) {
      EXPECT_FALSE(comes_through(Qt::Key_F9, held));
      EXPECT_FALSE(comes_through(Qt::Key_F7, held));
      EXPECT_FALSE(comes_through(Qt::Key_3, held | Qt::KeypadModifier));
      EXPECT_TRUE(comes_through(Qt::Key_F8, held));
      EXPECT_TRUE(comes_through(Qt::Key_4, held | Qt::KeypadModifier));
      EXPECT_TRUE(comes_through(Qt::Key_3, held));
      key(Qt::Key_Escape);
    }
  }
};

TEST_F(SwallowedKeys, NeverReachTheTrees) {
  browse(store, [] {
    expect_swallowed_in_tree();
    click_node("敬称");
    press("update");
    expect_swallowed_in_tree();
    control("Text1").setFocus();
    EXPECT_TRUE(comes_through(Qt::Key_C, Qt::ControlModifier));
    EXPECT_TRUE(comes_through(Qt::Key_F9, Qt::NoModifier));
  });
}

}  // namespace
