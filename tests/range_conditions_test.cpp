#include "common_rules.h"
#include "conditions/r_date_cond.h"
#include "platform/form.h"
#include "store/text_values.h"

using namespace harness;

namespace {

class RangeConditions : public common_rules {
 protected:
  rows all_lines(int definition) {
    return lines(definition,
                 "replace_cond_no,sno,use_type,d_f_method,d_f_val,d_t_method,d_t_val,n_f_method,"
                 "n_f_val,n_t_method,n_t_val");
  }
  static std::string cell(int row, int column) { return grid_column(column).at(row - 1); }
  static void ok() { press("Command1"); }
};

TEST_F(RangeConditions, DatesAreCheckedWhileTypedAndAsRanges) {
  using namespace std::chrono;
  platform::form<ta_vorlumine::r_date_cond>().system_date = [] {
    return platform::system_date{'/', year(2024) / 2 / 29};
  };
  edit_at("日付", "取引開始日", "cond_set", [] {
    in("r_date_cond");
    fill_cell(1, 5, "2005-01-31");
    message("日付無効.(フォーマット:)2024/02/29");
    EXPECT_EQ(cell(1, 5), "2024/02/29");
    fill_cell(1, 7, "２００５／１３／４５");
    message("日付無効.範囲エラー！");
    EXPECT_EQ(cell(1, 7), "２００５／１３／４５");
    fill_cell(1, 6, "1");
    fill_cell(1, 8, "2");
    ok();  // can't be compared: ends without a word
    in("r_date_cond");
    fill_cell(1, 7, "２０２４／０３・０１");
    fill_cell(1, 6, "2");
    ok();
    message("第1行目：日付の指定が正しくありません");
    fill_cell(1, 6, "1");
    fill_cell(2, 8, "1");
    fill_cell(2, 7, "1999/12/31");
    fill_cell(3, 5, "2000/01/01");
    ok();
    message("設定完了！");
    EXPECT_EQ(tree_lines()[2], "    2024/02/29から2024/03/01まで（含まない）;1999/12/31まで");
  });
  EXPECT_EQ(all_lines(30), (rows{"8|1|D|1|2024/02/29|2|2024/03/01|null|null|null|null",
                                 "8|2|D|null|null|1|1999/12/31|null|null|null|null"}));
}

TEST_F(RangeConditions, NumbersAreComparedAsNumbers) {
  edit_at("数値", "年齢", "cond_set", [this] {
    in("r_number_cond");
    fill_cell(1, 5, "10");
    fill_cell(1, 6, "2");
    fill_cell(1, 7, "9.5");
    fill_cell(1, 8, "2");
    control("Command1").setFocus();
    ok();
    message("第1行目：数字の指定が正しくありません");
    EXPECT_EQ(focused_control(), "fg");
    fill_cell(1, 5, "−９");
    fill_cell(1, 7, "１，０");
    ok();  // no number: ends without a word
    in("r_number_cond");
    fill_cell(1, 7, " ＋１０，０００．５ ");
    fill_cell(2, 5, "漢ａbc");
    EXPECT_EQ(cell(2, 5), "漢ａbc");
    fill_cell(2, 6, "1");
    ok();
    EXPECT_NE(read_message().find(harness::on_server() ? "numeric" : "n_f_val"), std::string::npos);
    EXPECT_TRUE(all_lines(31).empty());
    fill_cell(2, 5, "1e400");
    ok();
    message("第2行目：数字の桁数が多すぎるため、登録できません");
    fill_cell(2, 5, "７００８７１９６４．１９９７６３");
    fill_cell(3, 5, "5");
    fill_cell(3, 6, "1");
    fill_cell(3, 7, "5.0");
    fill_cell(3, 8, "1");
    ok();
    message("設定完了！");
    EXPECT_EQ(tree_lines()[2],
              "    -9から（含まない）10000.5まで（含まない）;700871964.199763から;5から5まで");
    store.run(  // as a copy holds a bound that is none
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,n_f_val,n_t_method,"
        "n_t_val) values(31,8,4,'N',0,1,7)");
    click_node("-9から（含まない）10000.5まで（含まない）;700871964.199763から;5から5まで");
    press("cond_set");
    click_cell(2, 5);
    EXPECT_EQ(grid_column(5), (rows{"-9", "700871964.199763", "5", "", ""}));
    EXPECT_EQ(grid_column(8), (rows{"まで（含まない）", "", "まで", "まで", ""}));
    EXPECT_EQ(grid().model()->headerData(3, Qt::Horizontal, Qt::AccessibleTextRole),
              "比較値(TO)の比較方法");
    press("Command2");
  });
  EXPECT_EQ(all_lines(31),
            (rows{"8|1|N|null|null|null|null|2|-9|2|10000.5",
                  "8|2|N|null|null|null|null|1|700871964.199763|null|null",
                  "8|3|N|null|null|null|null|1|5|1|5", "8|4|N|null|null|null|null|null|0|1|7"}));
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
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(read_number("1e-400"), 0);
  EXPECT_EQ(read_number("1e400"), infinity);
  EXPECT_EQ(read_number("-1e400"), -infinity);
  for (const char* text : {"1e23", " +0010.50", "0e99", "-9223372036854775808", "5e-324",
                           "0.30000000000000004", "1.7976931348623157e308"}) {
    EXPECT_TRUE(ADODB::is_kept_exactly(text)) << text;
  }
  for (const char* text : {"-1e400", "1e-400", "12345678901234567890", "0.1234567890123456789",
                           "9007199254740993.0", "9223372036854775809", "abc"}) {
    EXPECT_FALSE(ADODB::is_kept_exactly(text)) << text;
  }
}

}  // namespace
