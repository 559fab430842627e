#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "harness.h"
#include "store_failure.h"
#include "tool/store_commands.h"

using namespace ADODB;

namespace {

struct outcome {
  int code;
  std::string errors;
};

outcome rule_store_with(const std::vector<std::string_view>& arguments) {
  std::ostringstream output, errors;
  const int code = rule_store::run_command(arguments, output, errors);
  return {code, errors.str()};
}

TEST(RuleStoreTool, MakesAStoreOnceAndTouchesNothingThatIsThere) {
  const harness::test_store folder_only;
  const std::string path = (folder_only.folder() / "new.db").string();
  const outcome made = rule_store_with({"init", path, "--sample"});
  EXPECT_EQ(made.code, 0) << made.errors;

  Connection connection;
  connection.Open("Driver=SQLite;Database=" + path);
  const auto count = [&] {
    return connection.Execute("select count(*) from replace").Fields().Item(0).Value().number();
  };
  EXPECT_GT(count(), 40);
  connection.Execute("delete from replace");
  const outcome again = rule_store_with({"init", path});
  EXPECT_EQ(again.code, 1);
  EXPECT_NE(again.errors.find(path), std::string::npos);
  EXPECT_EQ(count(), 0);

  EXPECT_EQ(rule_store_with({"init", path + "/under/a/file"}).code, 1);
  EXPECT_EQ(rule_store_with({"init", folder_only.folder().string()}).code, 1);
}

TEST(RuleStoreTool, ShowsItsUsageWhenCalledWrongly) {
  const std::vector<std::vector<std::string_view>> wrong = {{},
                                                            {"other"},
                                                            {"init"},
                                                            {"init", "a", "--other"},
                                                            {"init", "--sample"},
                                                            {"init", ""},
                                                            {"init", "a", "--sample", "b"}};
  for (const auto& arguments : wrong) {
    const outcome outcome = rule_store_with(arguments);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_NE(outcome.errors.find("init FILE|CONNECT_STRING [--sample]"), std::string::npos);
  }
  EXPECT_FALSE(std::filesystem::exists("a"));
}

TEST(Schema, RefusesWhatNoProgramMayStore) {
  harness::test_store store;
  const std::string line = "insert into replace_cond(replace_no,replace_cond_no,sno,";
  const std::string long_text(101, 'x');
  for (const std::string& statement : {
           std::string("insert into replace(replace_no) values(0)"),
           std::string("insert into replace(replace_no) values(32768)"),
           std::string("insert into replace(replace_no,p_replace_no) values(1,-1)"),
           "insert into replace(replace_no,title) values(1,'" + long_text + "')",
           std::string("insert into replace_m(replace_no,replace_m_no) values(1,32768)"),
           std::string("insert into replace_m(replace_no,replace_m_no) values(0,1)"),
           std::string("insert into replace_m(replace_no) values(1)"),
           line + "s_val) values(1,1,1,'" + long_text + "')",
           line + "s_val) values(1,1,0,'a')",
           line + "n_f_val) values(1,1,1,'abc')",
           line + "n_t_val) values(1,1,1,'')",
           line + "d_f_val) values(1,1,1,'2005/02/31')",
           line + "d_f_val) values(1,1,1,'2005/2/3')",
           line + "d_t_val) values(1,1,1,'2005/02-03')",
           line + "d_t_val) values(1,1,1,'2005-13-01')",
           line + "d_t_val) values(1,1,1,'2005102103')",
           line + "b_val) values(1,1,1,2)",
       })
    EXPECT_EQ(failure_of([&] { store.run(statement); }).kind(), failure_kind::other) << statement;
  store.run_all({line + "d_f_val,d_t_val) values(1,1,1,'2004/02/29','2004.02.29')",
                 line + "s_method,use_type) values(1,1,2,'9','?')",
                 "insert into replace_m(replace_no,replace_m_no,replace_cond_type) values(1,1,0)",
                 "insert into replace(replace_no,kind) values(32767,'X')"});
  EXPECT_EQ(store.value("select replace_cond_no from replace_m where replace_cond_type='0'"),
            "null");
}

TEST(Schema, NeedsNoScanOfATableForTheSystemsLookUps) {
  harness::test_store store;
  const std::string explain = harness::on_server() ? "explain " : "explain query plan ";
  for (const char* look_up : {
           "SELECT * FROM REPLACE WHERE P_REPLACE_NO = 1 ORDER BY REPLACE_NO",
           "select title from replace where title = 'a' and kind='C'",
           "select count(*) from replace_m where p_replace_m_no=1",
           "select * from replace_m where replace_no=1 and p_replace_m_no=1",
           "select max(sno) from replace_cond where replace_cond_no=1",
           "SELECT * FROM REPLACE_COND WHERE REPLACE_COND_NO = 1",
           "delete from replace_cond where replace_no=1",
           "select field_id,attr from field where field_name='a'",
       })
    for (const std::string& step : store.rows(explain + look_up))
      for (const char* detour : {"SCAN", "TEMP B-TREE", "Seq Scan", "Sort"})
        EXPECT_EQ(step.find(detour), std::string::npos) << step;
}

/// Each select finds the rows that break one rule of the data's shape.
TEST(Sample, KeepsEveryRuleOfTheTrees) {
  harness::test_store store;
  store.load_sample();
  for (const char* offenders : {
           "select replace_no from replace r where p_replace_no<>0 and not exists (select 1 from"
           " replace p where p.replace_no=r.p_replace_no and p.kind='F')",
           "select replace_no from replace where kind='F' and (replace_m_no<>0 or comment notnull)",
           "select title from replace where kind='C' group by title having count(*)>1",
           "select title from replace join field on title=field_name",
           "select replace_no from replace_m m where not exists (select 1 from replace r where"
           " r.replace_no=m.replace_no and r.kind='C')",
           "select replace_no from replace_m where p_replace_m_no=0 group by 1 having count(*)>1",
           "select m.replace_no from replace_m m join replace r on r.replace_no=m.replace_no where"
           " p_replace_m_no=0 and use_type='F' and m.replace_m_no<>r.replace_m_no",
           "select replace_no from replace_m where p_replace_m_no=0 and use_type='C'",
           "select c.replace_no from replace_m c left join replace_m p on p.replace_no=c.replace_no"
           " and p.replace_m_no=c.p_replace_m_no where c.p_replace_m_no<>0 and (p.replace_no is "
           "null"
           " or c.replace_m_no<=p.replace_m_no or (c.use_type='C')<>(p.use_type='F')"
           " or p.use_type='R')",
           "select p_replace_m_no from replace_m where use_type='C' group by replace_no,"
           "p_replace_m_no having sum(case replace_cond_type when '1' then 1 else 0 end)<>1 or "
           "count(*)<2",
           "select p_replace_m_no from replace_m where use_type<>'C' and p_replace_m_no<>0 group by"
           " replace_no,p_replace_m_no having count(*)>1",
           "select replace_m_no from replace_m where use_type='C' and"
           " (replace_cond_type='0')<>(coalesce(replace_cond_no,0)>0)",
           "select replace_cond_no from replace_m where replace_cond_no>0 group by 1 having"
           " count(*)>1",
           "select replace_m_no from replace_m m where replace_cond_type='0' and not exists (select"
           " 1 from replace_cond c where c.replace_no=m.replace_no and"
           " c.replace_cond_no=m.replace_cond_no and sno=1)",
           "select replace_cond_no from replace_cond c where not exists (select 1 from replace_m m"
           " where c.replace_no=m.replace_no and c.replace_cond_no=m.replace_cond_no)",
           "select c.replace_no from replace_cond c join replace_m m on m.replace_no=c.replace_no "
           "and"
           " m.replace_cond_no=c.replace_cond_no join replace_m p on p.replace_no=m.replace_no and"
           " p.replace_m_no=m.p_replace_m_no join field f on f.field_id=p.field_id where "
           "c.use_type<>"
           "case f.attr when 'M' then 'S' when 'T' then 'S' else f.attr end",
           "select replace_m_no from replace_m left join field on field.field_id ="
           " coalesce(replace_m.field_id, r_field_id) where (use_type='F' or replace_type='F') and"
           " field_name is null",
           "select replace_m_no from replace_m where use_type='R' and coalesce(case replace_type"
           " when 'S' then r_text when 'T' then r_text_filename when 'I' then r_image_filename"
           " when 'M' then r_mmedia_filename when 'F' then r_field_id end,'')=''",
           "select 1 from seqno where replace<>(select max(replace_no) from replace) or replace_m<>"
           "(select max(replace_m_no) from replace_m) or replace_cond<>"
           "(select max(replace_cond_no) from replace_cond)",
       })
    EXPECT_EQ(store.rows(offenders), std::vector<std::string>()) << offenders;
}

}  // namespace
