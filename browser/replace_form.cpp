#include "browser/replace_form.h"

#include "controls/tree/swallowed_keys.h"

namespace ta_vorlumine {

using platform::Toolbar;

replaceForm::replaceForm()
    : imToolbar{{"addf", "tb_addf"}, {"updatef", "tb_updatef"}, {"delf", "tb_delf"},
                {"add", "tb_add"},   {"update", "tb_update"},   {"copy", "tb_copy"},
                {"del", "tb_del"},   {"close", "tb_close"}},
      ImageList1{{"root", "root"},   {"open", "open"},   {"close", "close"}, {"cond", "cond"},
                 {"cond1", "cond1"}, {"cond2", "cond2"}, {"cond3", "cond3"}},
      Toolbar1(window, "Toolbar1", imToolbar,
               {{"addf", "作成", "フォルダの作成"},
                {"updatef", "修正", "フォルダの修正"},
                {"delf", "削除", "フォルダの削除"},
                Toolbar::separator(),
                {"add", "追加", "置換定義の追加"},
                {"update", "修正", "置換定義の修正"},
                {"copy", "複写", "置換定義の複写"},
                {"del", "削除", "置換定義の削除"},
                Toolbar::separator(),
                {"close", "閉じる", "一覧を閉じる"}}),
      SSTree1(window, "SSTree1", "置換タイトル一覧"),
      Label1(window, "Label1", {}, nullptr, platform::Label::lines::two) {
  window.body = platform::column({Toolbar1, SSTree1, Label1});
  window.first_stop = &SSTree1;
  window.esc_closes = false;
  window.on_load = [this] { init_form(); };
  window.on_key_down = [this](int& code, int shift) {
    if (window.active_control() == SSTree1.name()) swallow_clipboard_keys(code, shift);
  };
  // Probe the connection first: if it is down this throws, and the tree on screen is kept.
  window.on_failure = [this] {
    Init_ToolBar();
    static_cast<void>(conn.Execute("select replace_no from replace where replace_no=0"));
    init_form();
  };
  Toolbar1.rest = &SSTree1;
  Toolbar1.on_button_click = [this](const std::string& key, int) { press(key); };
  SSTree1.on_node_click = [this](const Node& node) { select_node(node); };
  SSTree1.on_node_open = [this](const Node& node) {
    if (node.Tag() == "0") return;
    select_node(node);
    press("update");
  };
  SSTree1.on_mouse_down = [this](int, int, int x, int y) { press_on_tree(x, y); };
  SSTree1.on_mouse_move = [this](int buttons, int, int, int) { move_on_tree(buttons); };
  SSTree1.on_drag_over = [this](int x, int y) { drag_over_tree(x, y); };
  SSTree1.on_drop = [this] { drop_on_tree(); };
  using key = node_command::key;
  SSTree1.offer(Toolbar1, {{"addf"},
                           {"updatef", key::f2},
                           {"delf", key::del},
                           {"add", key::insert},
                           {"update", key::f2},
                           {"copy"},
                           {"del", key::del}});
  SSTree1.moving = {
      .may_go = [](const Node& node) { return node.Key() != "0"; },
      .takes_nodes = [](const Node& node) { return node.Tag() == "0"; },
      .move = [this](const Node& source, const Node& target) { file_title_node(source, target); }};
}

}  // namespace ta_vorlumine
