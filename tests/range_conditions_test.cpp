#include <gtest/gtest.h>

#include "condition_dialogs.h"
#include "conditions/r_date_cond.h"
#include "platform/form.h"
#include "store/text_values.h"

using namespace harness;

namespace {

class RangeConditions : public condition_dialogs {};

TEST_F(RangeConditions, DatesAreCheckedWhileTypedAndAsRanges) {
  using namespace std::chrono;
  platform::form<ta_vorlumine::r_date_cond>().system_date = [] {
    return platform::system_date{'/', year(2024) / 2 / 29};
  };
  user script = open("日付", "取引開始日", "cond_set");
  script.in("r_date_cond", [] { put(1, 5, "2005-01-31"); });
  script.message("日付無効.(フォーマット:)2024/02/29");
  script.in("r_date_cond", [] {
    EXPECT_EQ(cell(1, 5), "2024/02/29");
    put(1, 7, "2005/13/45");
  });
  script.message("日付無効.範囲エラー！");
  script.in("r_date_cond", [] {
    EXPECT_EQ(cell(1, 7), "2005/13/45");
    pick(1, 6, "1");
    pick(1, 8, "2");
    ok();  // can't be compared: ends without a word
  });
  script.in("r_date_cond", [] {
    put(1, 7, "2024/03/01");
    pick(1, 6, "2");
    ok();
  });
  script.message("第1行目：日付の指定が正しくありません");
  script.in("r_date_cond", [] {
    pick(1, 6, "1");
    pick(2, 8, "1");
    put(2, 7, "1999/12/31");
    put(3, 5, "2000/01/01");
    ok();
  });
  script.message("設定完了！");
  play(script, [] {
    EXPECT_EQ(tree_lines()[2], "    2024/02/29から2024/03/01まで（含まない）;1999/12/31まで");
  });
  EXPECT_EQ(lines(30), (rows{"8|1|D|null|null|1|2024/02/29|2|2024/03/01|null|null|null|null|null",
                             "8|2|D|null|null|null|null|1|1999/12/31|null|null|null|null|null"}));
}

TEST_F(RangeConditions, NumbersAreComparedAsNumbers) {
  user script = open("数値", "年齢", "cond_set");
  script.in("r_number_cond", [] {
    put(1, 5, "10");
    pick(1, 6, "2");
    put(1, 7, "9.5");
    pick(1, 8, "2");
    ok();
  });
  script.message("第1行目：数字の指定が正しくありません");
  script.in("r_number_cond", [] {
    put(1, 5, "9");
    put(1, 7, "1,000");
    ok();  // no number: ends without a word
  });
  script.in("r_number_cond", [] {
    put(1, 7, " 10 ");
    put(2, 5, "abc");
    pick(2, 6, "1");
    ok();
  });
  script.whatever("the engine's refusal", [this] {
    EXPECT_TRUE(lines(31).empty());
    key(Qt::Key_Return);
  });
  script.in("r_number_cond", [] {
    put(2, 5, "0.1");
    ok();
  });
  script.message("設定完了！");
  play(script,
       [] { EXPECT_EQ(tree_lines()[2], "    9から（含まない）10まで（含まない）;0.1から"); });
}

TEST(TypedNumber, TakesJustTheFormsThatTheStoreTakes) {
  using ADODB::read_number;
  for (const char* text : {"1", " -1.5 ", "+2", ".5", "5.", "1e3"}) {
    EXPECT_TRUE(read_number(text)) << text;
  }
  for (const char* text :
       {"", " ", "１２", "1,000", "1 000", "abc", "inf", "nan", "0x10", "1e", "+-1"}) {
    EXPECT_FALSE(read_number(text)) << text;
  }
}

}  // namespace
