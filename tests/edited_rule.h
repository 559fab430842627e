#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "harness.h"

/// A store with the definition 敬称, which asks for a name, and the empty definition 空.
class edited_rule : public testing::Test {
 protected:
  using rows = std::vector<std::string>;

  void SetUp() override {
    store.run_all({
        "insert into field values('F1','氏名','T')",
        "insert into field values('F2','フリガナ','M')",
        "insert into field values('F3','取引開始日','D')",
        "insert into field values('F4','社長''s室','T')",
        "insert into field values('F''5','会社名',null)",
        "insert into replace values(1,0,'C','敬称',null,10)",
        "insert into replace values(2,0,'C','空',null,21)",
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
        "values(1,10,0,'F','F1')",
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
        "replace_cond_no) values(1,11,10,'C','0',1),(1,12,10,'C','1',null)",
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_title,"
        "replace_type,r_text) values(1,13,12,'R','不明','S','様')",
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
        "values(1,1,1,'S',1,'東')",
        "update seqno set replace=2,replace_m=20,replace_cond=1",
    });
  }

  /// Opens a definition, clicks a node of its rule tree and presses a button of the editor.
  static harness::user open(const std::string& definition, const std::string& node,
                            const std::string& button) {
    harness::user user;
    user.in("replaceForm", [=] {
      harness::click_node(definition);
      harness::press("update");
    });
    user.in("replace_create", [=] {
      harness::click_node(node);
      harness::press(button);
    });
    return user;
  }

  /// Plays the user up to the closing of all windows; `look` sees the editor before.
  void play(
      harness::user& user, const std::function<void()>& look = [] {}) {
    user.in("replace_create", [look] {
      EXPECT_EQ(harness::enabled_buttons(), "exit");
      look();
      harness::press("exit");
    });
    user.in("replaceForm", [] { harness::press("close"); });
    user.browse(store);
  }

  std::string counter() { return store.value("select replace_m from seqno"); }

  harness::test_store store;
};
