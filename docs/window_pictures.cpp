#include "docs/window_pictures.h"

#include <functional>

#include "tests/test_store.h"
#include "tests/user.h"

namespace harness {
namespace {

using drawing = std::function<void(const char* name)>;

// The road of the user's manual: from a new folder to a finished definition.
void draw_road(const drawing& draw) {
  click_node("条件設定");
  press("addf");
  type("Text1", "案内状");
  draw("folder");
  press("Command2");
  click_node("案内状");
  press("add");
  type("Text1", "案内状の敬称");
  click_node("置換条件");
  press("addr_set");
  choose("Combo1", "会社名");
  draw("field");
  press("Command1");
  click_node("会社名");
  press("cond_set");
  fill_cell(1, 5, "株式会社");
  fill_cell(1, 6, "1");
  fill_cell(2, 5, "有限会社");
  fill_cell(2, 6, "1");
  draw("lines");
  press("Command1");
  read_message();
  for (const auto& [node, text] :
       {std::pair("会社名/株式会社（部分一致）;有限会社（部分一致）", "御中"),
        std::pair("会社名/以外", "様")}) {
    click_node(node);
    press("cond_val_set");
    type("title_txt", text);
    type("Text1", text);
    draw("value");
    press("Command1");
  }
  click_node("御中");
  top_window().resize(top_window().width(), 320);
  draw("finished");
  press("exit");
}

void draw_browser(const drawing& draw) {
  click_node("敬称");
  draw("browser");
  press("del");
  draw("question");
  key(Qt::Key_Escape);
  menu("移動する項目にする");
  click_node("季節の挨拶");
  menu({}, [&] { draw("menu"); });
  key(Qt::Key_Escape);
  compose("年賀");
  draw("search");
  key(Qt::Key_Escape);
}

// The conditions of a definition, by the node on which each is opened.
void draw_conditions(const drawing& draw) {
  click_node("年賀状の本文（得意先）");
  press("update");
  for (const auto& [node, name] :
       {std::pair("喪中", "yesno"), std::pair("100000から1000000まで（含まない）", "number"),
        std::pair("2015/12/31まで", "date")}) {
    click_node(node);
    press("cond_set");
    // Wide enough for the longest choice.
    top_window().resize(540, top_window().height());
    draw(name);
    key(Qt::Key_Escape);
  }
  press("exit");
}

void draw_editor(const drawing& draw) {
  click_node("敬称");
  press("update");
  click_node("置換条件");
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  draw("editor");
  press("cond_set");
  draw("condition");
  key(Qt::Key_Escape);
  press("exit");
}

}  // namespace

int pictures_command(const std::vector<std::string>& arguments) {
  test_store store;
  store.load_sample();
  int missing = 0;
  const auto draw = [&](const char* name) {
    missing += save_picture(arguments.at(0) + "/" + name + ".png") ? 0 : 1;
  };
  browse(store, [&] {
    draw_browser(draw);
    draw_conditions(draw);
    draw_editor(draw);
    draw_road(draw);
  });
  return missing;
}

}  // namespace harness
