#include "common_rules.h"

namespace harness {

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
