#include <QScrollBar>

#include "common_rules.h"

using namespace harness;

namespace {

class Moving : public common_rules {
 protected:
  std::string folder_of(const std::string& title) {
    return store.value("select p_replace_no from replace where title='" + title + "'");
  }
};

TEST_F(Moving, FilesNodesByDraggingThem) {
  const std::string refused = "この場所への移動はできません";
  store.run(
      "insert into replace values(50,0,'F','総務',null,0),(51,50,'F','会社',null,0),"
      "(20,0,'F','宛名',null,0),(21,20,'F','下',null,0),(22,21,'F','底',null,0)");
  browse(store, [&] {
    drag_node("空", "総務/会社");
    EXPECT_EQ(enabled_buttons(), "update copy del close");
    EXPECT_EQ(selected_node(), "空");
    EXPECT_EQ(tree_lines().back(), "      空");
    drag_node("空", "御中");              // onto a definition: nothing
    drag_node("宛名/会社", "総務/会社");  // onto a namesake: nothing
    drag_node("条件設定", "総務");        // the root stays
    drag_node("宛名", "会社");            // into its own subtree
    message(refused);
    for (const char* below_a_namesake : {"下", "底"}) {
      drag_node("宛名", below_a_namesake);
      message(refused);
    }
    click_node("宛名");
    menu("移動する項目にする");
    click_node("会社");
    menu("「宛名」をここへ移動");
    message(refused);
    click_node("御中");
    menu("移動する項目にする");
    EXPECT_EQ(menu(), "修正\tF2 複写 削除\tDelete 移動をやめる\tEsc");
    click_node("条件設定");
    menu("「御中」をここへ移動");
    EXPECT_EQ(menu(), "作成 追加\tInsert") << "nothing is marked any more";
    drag_node("御中", "総務");
    drag_node("会社", "総務");  // the folder that holds a namesake, none above it
    EXPECT_EQ(tree_lines().back(), "    会社");
    store.refuse("update", "replace", "動かせません");
    drag_node("日付", "宛名");
    message("動かせません");
    store.stop_refusing();
    store.run("update replace set p_replace_no=3 where replace_no=50");  // by another program
    drag_node("宛名", "総務");
    message(refused);
    EXPECT_EQ(tree_lines()[3], "    総務");
    drag_node(node("日付"), node("総務"), [this] {
      store.run("delete from replace where replace_no=30");
      return true;
    });
    message(gone);
  });
  EXPECT_EQ(folder_of("空") + folder_of("御中"), "5150");
  EXPECT_EQ(store.rows("select p_replace_no from replace where title='会社'"), (rows{"50", "50"}));
}

TEST_F(Moving, ADragOpensWhatItRestsOnAndScrollsAtTheEdge) {
  store.run(
      "with recursive n(i) as (select 100 union all select i+1 from n where i<160) "
      "insert into replace(replace_no,p_replace_no,kind,title) select i,0,'F','行'||i from n");
  store.run("update replace set p_replace_no=100 where replace_no=101");
  browse(store, [] {
    tree().collapse(node("行100"));
    drag_node(node("行102"), node("行100"), [] { return tree().isExpanded(node("行100")); });
    const QScrollBar& bar = *tree().verticalScrollBar();
    const auto scroll_to = [&](const std::string& top) {
      tree().scrollTo(node(top), QAbstractItemView::PositionAtTop);
    };
    scroll_to("行110");
    const QPoint foot(50, tree().viewport()->height() - 5);
    const QModelIndex last = tree().indexAt(foot);
    const int before = bar.value();
    drag_node(tree().indexBelow(node("行110")), last, [&] { return bar.value() > before + 5; });
    scroll_to("行130");
    const int below = bar.value();
    const QModelIndex first = tree().indexAt({50, 5});
    drag_node(tree().indexBelow(first), first, [&] { return bar.value() < below - 5; });
  });
}

}  // namespace
