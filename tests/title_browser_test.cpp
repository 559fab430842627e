#include <gtest/gtest.h>

#include <QWidget>

#include "harness.h"

using namespace harness;
using rows = std::vector<std::string>;

namespace {

class TitleBrowser : public testing::Test {
 protected:
  void SetUp() override {
    store.run_all({
        "insert into replace values(1,0,'F','営業',null,0)",
        "insert into replace values(2,1,'F','宛名',null,0)",
        "insert into replace values(3,2,'C','敬称','人の''敬称''',1)",
        "insert into replace values(4,0,'F','総務',null,0)",
        "insert into replace values(5,0,'C','年賀状','正月用',2)",
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_title,"
        "replace_type,r_text) values(3,1,0,'R','様','S','様')",
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type) values(3,1,1,'S')",
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type) values(5,1,1,'S')",
        "update seqno set replace=5,replace_m=10,replace_cond=1",
    });
  }

  std::string counters() { return store.value("select * from seqno"); }
  rows titles() {
    return store.rows("select replace_no,p_replace_no,kind,title from replace order by 1");
  }
  static user in_browser(std::function<void()> deed) {
    return user().in("replaceForm", std::move(deed));
  }
  static void close() { press("close"); }

  test_store store;
};

TEST_F(TitleBrowser, ShowsFoldersAndDefinitionsInTheOrderOfTheirKeys) {
  store.run("insert into replace values(6,1,'C',null,null,3)");
  store.run("insert into replace values(7,1,'C',' ',null,3)");
  store.run("insert into replace values(8,99,'C','親なし',null,3)");
  store.run("insert into replace values(9,0,'X','別の種類',null,3)");
  in_browser([] {
    EXPECT_EQ(tree_lines(), (rows{"条件設定", "  営業", "    宛名", "      敬称", "    NULL",
                                  "     ", "  総務", "  年賀状", "  別の種類"}));
    EXPECT_EQ(enabled_buttons(), "close");
    close();
  }).browse(store);
}

TEST_F(TitleBrowser, SelectionAllowsWhatTheNodeTakesAndShowsItsRemark) {
  in_browser([] {
    click_node("条件設定");
    EXPECT_EQ(enabled_buttons(), "addf add close");
    EXPECT_EQ(text_of("Label1"), "");
    click_node("営業");
    EXPECT_EQ(enabled_buttons(), "addf updatef delf add close");
    click_node("敬称");
    EXPECT_EQ(enabled_buttons(), "update copy del close");
    EXPECT_EQ(text_of("Label1"), "人の'敬称'");
    press("del");
  })
      .question("削除してもよろしいですか", false)
      .in("replaceForm",
          [] {
            EXPECT_EQ(enabled_buttons(), "close");
            click_node("敬称");  // the same node again
            EXPECT_EQ(enabled_buttons(), "update copy del close");
            close();
          })
      .browse(store);
  EXPECT_EQ(titles().size(), 5U);
}

TEST_F(TitleBrowser, ANodeThatCantBeReadGetsNoButtonsOfTheOneBefore) {
  in_browser([this] {
    click_node("営業");
    store.run("alter table replace rename to away");
    click_node("敬称");
    EXPECT_EQ(enabled_buttons(), "close");
    store.run("alter table away rename to replace");
    click_node("敬称");
    EXPECT_EQ(enabled_buttons(), "update copy del close");
    close();
  }).browse(store);
}

TEST_F(TitleBrowser, ARefusedLevelIsToldAndCostsThatLevelAlone) {
  store.run("alter table replace_m rename to replace_n");
  const std::string refusal = store.refusal_of("select * from replace_m");
  user()
      .message(refusal)
      .message(refusal)
      .in("replaceForm",
          [] {
            EXPECT_EQ(tree_lines(),
                      (rows{"条件設定", "  営業", "    宛名", "      敬称", "  総務", "  年賀状"}));
            close();
          })
      .browse(store);
}

TEST_F(TitleBrowser, MakesAndRenamesFolders) {
  const std::string longest = std::string(97, 'x') + "'😀漢";
  in_browser([] {
    click_node("条件設定");
    press("addf");
  })
      .in("replaceFolder",
          [] {
            EXPECT_EQ(top_window().windowTitle().toStdString(), "置換フォルダの作成");
            EXPECT_EQ(focused_control(), "Text1");
            press("Command2");
          })
      .message("フォルダが必須です。")
      .in("replaceFolder",
          [&] {
            type("Text1", longest + "x");
            press("Command2");
          })
      .message("タイトルが文字列長すぎます")
      .in("replaceFolder",
          [&] {
            type("Text1", longest);
            press("Command2");
          })
      .in("replaceForm",
          [&] {
            EXPECT_EQ(enabled_buttons(), "close");
            EXPECT_EQ(tree_lines().back(), "  " + longest);
            click_node("宛名");
            press("updatef");
          })
      .in("replaceFolder",
          [] {
            EXPECT_EQ(top_window().windowTitle().toStdString(), "置換フォルダの修正");
            EXPECT_EQ(text_of("Text1"), "宛名");
            type("Text1", "封筒");
            press("Command3");
          })
      .in("replaceForm",
          [] {
            click_node("宛名");
            press("updatef");
          })
      .in("replaceFolder",
          [] {
            type("Text1", "葉'書");
            press("Command2");
          })
      .in("replaceForm",
          [] {
            EXPECT_EQ(tree_lines()[2], "    葉'書");
            close();
          })
      .browse(store);
  EXPECT_EQ(store.value("select replace_no,p_replace_no,kind,title,comment,replace_m_no from "
                        "replace where replace_no=6"),
            "6|0|F|" + longest + "|null|0");
  EXPECT_EQ(store.value("select title from replace where replace_no=2"), "葉'書");
  EXPECT_EQ(counters(), "6|10|1");
}

TEST_F(TitleBrowser, DeletesAFolderWithAllBelowItAndNothingElse) {
  in_browser([] {
    click_node("営業");
    press("delf");
  })
      .question("削除してもよろしいですか", true)
      .in("replaceForm",
          [] {
            EXPECT_EQ(tree_lines(), (rows{"条件設定", "  総務", "  年賀状"}));
            click_node("年賀状");
            press("del");
          })
      .question("削除してもよろしいですか", true)
      .in("replaceForm", [] { close(); })
      .browse(store);
  EXPECT_EQ(titles(), (rows{"4|0|F|総務"}));
  EXPECT_TRUE(store.rows("select * from replace_m").empty());
  EXPECT_TRUE(store.rows("select * from replace_cond").empty());
  EXPECT_EQ(counters(), "5|10|1");
}

TEST_F(TitleBrowser, ARefusedDeleteIsToldAndTheTreeShowsWhatIsLeft) {
  store.refuse("delete", "replace_m", "ディスクがありません");
  in_browser([] {
    click_node("営業");
    press("delf");
  })
      .question("削除してもよろしいですか", true)
      .message("ディスクがありません")
      .in("replaceForm",
          [] {
            EXPECT_EQ(enabled_buttons(), "close");
            EXPECT_EQ(tree_lines(), (rows{"条件設定", "  総務", "  年賀状"}));
            close();
          })
      .browse(store);
}

TEST_F(TitleBrowser, ARowThatAnotherProgramHasDeletedIsToldAndNothingIsWritten) {
  const std::string gone = "対象の行は他のプログラムによって削除されています。一覧を読み直します。";
  user script;
  for (const std::string button : {"addf", "updatef", "delf", "add", "update", "copy", "del"}) {
    const bool folder =
        button == "addf" || button == "updatef" || button == "delf" || button == "add";
    const std::string kind = folder ? "F" : "C";
    script.in("replaceForm", [this, kind, button] {
      store.run("insert into replace values(20,0,'" + kind + "','消える',null,7)");
      press("close");
    });
    script.browse(store);
    const rows before = titles();
    script
        .in("replaceForm",
            [this, button] {
              click_node("消える");
              store.run("delete from replace where replace_no=20");
              press(button);
            })
        .message(gone)
        .in("replaceForm", [] {
          EXPECT_EQ(enabled_buttons(), "close");
          EXPECT_EQ(tree_lines().size(), 6U);
          close();
        });
    script.browse(store);
    EXPECT_EQ(titles().size(), before.size() - 1) << button;
  }
  EXPECT_EQ(counters(), "5|10|1");
}

TEST_F(TitleBrowser, AFolderDeletedUnderItsDialogEndsTheDialog) {
  in_browser([] {
    click_node("総務");
    press("updatef");
  })
      .in("replaceFolder",
          [this] {
            store.run("delete from replace where title='総務'");
            type("Text1", "新しい");
            press("Command2");
          })
      .message("対象の行は他のプログラムによって削除されています。一覧を読み直します。")
      .in("replaceForm",
          [] {
            EXPECT_EQ(tree_lines().size(), 5U);
            close();
          })
      .browse(store);
}

TEST_F(TitleBrowser, TellsThatThereIsNoKeyLeft) {
  store.run("update seqno set replace=32767");
  in_browser([] {
    click_node("総務");
    press("add");
  })
      .message("番号が上限の32767に達したため、これ以上登録できません。")
      .in("replaceForm", [] { close(); })
      .browse(store);
  EXPECT_EQ(titles().size(), 5U);
}

TEST_F(TitleBrowser, FilesNodesByDraggingThem) {
  const std::string refused = "この場所への移動はできません";
  store.run("insert into replace values(6,4,'F','宛名',null,0)");  // a namesake
  in_browser([] { drag_node("年賀状", "総務/宛名"); })
      .in("replaceForm",
          [] {
            EXPECT_EQ(tree_lines(), (rows{"条件設定", "  営業", "    宛名", "      敬称", "  総務",
                                          "    宛名", "      年賀状"}));
            EXPECT_EQ(enabled_buttons(), "update copy del close");
            drag_node("年賀状", "敬称");          // onto a definition: nothing
            drag_node("営業/宛名", "総務/宛名");  // onto a namesake: nothing
            drag_node("条件設定", "総務");        // the root stays
            drag_node("営業", "宛名");            // into its own subtree
          })
      .message(refused)
      .in("replaceForm",
          [this] {
            drag_node("敬称", "条件設定");
            store.refuse("update", "replace", "動かせません");
            drag_node("年賀状", "営業");
          })
      .message("動かせません")
      .in("replaceForm",
          [this] {
            store.stop_refusing();
            store.run(
                "update replace set p_replace_no=2 where replace_no=4");  // by another program
            drag_node("営業", "総務");
          })
      .message(refused)
      .in("replaceForm",
          [this] {
            store.run("update replace set p_replace_no=0 where replace_no=4");
            store.run("delete from replace where replace_no=3");
            drag_node("敬称", "総務");
          })
      .message("対象の行は他のプログラムによって削除されています。一覧を読み直します。")
      .in("replaceForm", [] { close(); })
      .browse(store);
  EXPECT_EQ(titles(),
            (rows{"1|0|F|営業", "2|1|F|宛名", "4|0|F|総務", "5|6|C|年賀状", "6|4|F|宛名"}));
}

TEST_F(TitleBrowser, ClipboardKeysNeverReachTheTree) {
  in_browser([] {
    click_node("営業");
    EXPECT_EQ(focused_control(), "SSTree1");
    key(Qt::Key_C, "ctrl");
    key(Qt::Key_F9);
    EXPECT_EQ(enabled_buttons(), "addf updatef delf add close");
    close();
  }).browse(store);
}

TEST_F(TitleBrowser, AnEmptyTableOfCountersIsTold) {
  store.run_all({"delete from seqno", "delete from replace"});
  in_browser([] {
    click_node("条件設定");
    press("addf");
  })
      .in("replaceFolder",
          [] {
            type("Text1", "最初");
            press("Command2");
          })
      .message("SEQNOテーブルがありません")
      .in("replaceForm", [] { close(); })
      .browse(store);
  EXPECT_EQ(titles(), (rows{"1|0|F|最初"}));
}

}  // namespace
