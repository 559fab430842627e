#include "common_rules.h"

namespace harness {

void add_common_rules(test_store& store) {
  store.run_all(
      {"insert into field values('F1','氏名','T'),('F2','フリガナ','M'),('F3','取引開始日','D'),"
       "('F4','社長''s室','T'),('F''5','会社名',null),('F6','年齢','N'),('F7','会員','B')",
       "insert into replace values(1,0,'C','敬称',' ',10),(2,0,'C','空',' ',21),"
       "(3,0,'F','宛名',null,0),(4,3,'F','会社',null,0),(5,4,'C','御中','社''名',22),"
       "(30,0,'C','日付',' ',30),(31,0,'C','数値',' ',31),(32,0,'C','二択',' ',32),"
       "(33,0,'C','新規',' ',33)",
       "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) values"
       "(1,10,0,'F','F1'),(30,30,0,'F','F3'),(31,31,0,'F','F6'),(32,32,0,'F','F7'),"
       "(33,33,0,'F','F1')",
       "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
       "replace_cond_no) values(1,11,10,'C','0',1),(1,12,10,'C','1',null)",
       "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_title,"
       "replace_type,r_text) values(1,13,12,'R','不明','S','様'),(5,22,0,'R','御中','S','御中')",
       "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
       "values(1,1,1,'S',1,'東')",
       "update seqno set replace=33,replace_m=40,replace_cond=7"});
}

void common_rules::edit_at(const std::string& definition, const std::string& node,
                           const std::string& button, const std::function<void()>& script) {
  edit(store, definition, [&] {
    click_node(node);
    press(button);
    script();
    in("replace_create");
    EXPECT_EQ(enabled_buttons(), "exit");
  });
}

common_rules::rows common_rules::rules(int definition, const std::string& columns,
                                       const std::string& where) {
  return store.rows("select " + columns + " from replace_m where replace_no=" +
                    std::to_string(definition) + " and " + where + " order by replace_m_no");
}

common_rules::rows common_rules::lines(int definition, const std::string& columns) {
  return store.rows("select " + columns + " from replace_cond where replace_no=" +
                    std::to_string(definition) + " order by replace_cond_no,sno");
}

}  // namespace harness
