#include "editor/replace_create.h"

#include "controls/tree/swallowed_keys.h"

namespace ta_vorlumine {

using platform::Toolbar;

replace_create::replace_create()
    : imToolbar{{"addr_set", "tb_addr_set"},
                {"cond_set", "tb_cond_set"},
                {"cond_val_set", "tb_cond_val_set"},
                {"del_set", "tb_del_set"},
                {"exit", "tb_exit"}},
      ImageList1{
          {"root", "root"}, {"open", "open"}, {"cond", "cond"}, {"close", "close"}, {"val", "val"}},
      Toolbar1(window, "Toolbar1", imToolbar,
               {{"addr_set", "ﾃﾞｰﾀﾍﾞｰｽの項目設定", "ﾃﾞｰﾀﾍﾞｰｽの項目設定"},
                {"cond_set", "置換条件の設定", "置換条件の設定"},
                {"cond_val_set", "置換値設定", "置換値設定"},
                Toolbar::separator(),
                {"del_set", "削除", "選択した項目の削除"},
                Toolbar::separator(),
                {"exit", "閉じる", "保存して閉じる"}}),
      Text1(window, "Text1"),
      Label1(window, "Label1", "置換ﾀｲﾄﾙ", &Text1),
      Text2(window, "Text2", platform::TextBox::lines::one_tall),
      Label2(window, "Label2", "備考", &Text2),
      SSTree1(window, "SSTree1", "置換条件") {
  window.body = platform::column(
      {Toolbar1, platform::fields({platform::row({Label1, Text1}), platform::row({Label2, Text2})}),
       SSTree1});
  window.first_stop = &Text1;
  window.esc_closes = false;
  window.on_load = [this] { load(); };
  window.on_close = [this] { exit(); };
  window.on_failure = [this] { refresh(); };
  window.on_key_down = [this](int& code, int shift) {
    if (window.active_control() == SSTree1.name()) swallow_clipboard_keys(code, shift);
  };
  Toolbar1.rest = &SSTree1;
  Toolbar1.on_button_click = [this](const std::string&, int position) { press(position); };
  SSTree1.on_node_click = [this](const Node& node) { select_node(node); };
  using key = node_command::key;
  SSTree1.offer(Toolbar1, {{"addr_set", key::insert},
                           {"cond_set", key::f2},
                           {"cond_val_set", key::f2},
                           {"del_set", key::del}});
}

void replace_create::Init_ToolBar() {
  for (const int position :
       {addr_set_button, cond_set_button, cond_val_set_button, del_set_button}) {
    Toolbar1.enable(position, false);
  }
  Toolbar1.enable(exit_button, true);
}

void replace_create::refresh() {
  Init_ToolBar();
  init_tree();
}

void replace_create::press(int position) {
  switch (position) {
    case addr_set_button:
      return addr_set();
    case cond_set_button:
      return cond_set();
    case cond_val_set_button:
      return cond_val_set();
    case del_set_button:
      return del_set();
    case exit_button:
      return exit();
    default:
      return;
  }
}

}  // namespace ta_vorlumine
