#include "values/set_value.h"

namespace ta_vorlumine {

using platform::column;
using platform::row;

namespace {

constexpr std::array<const char*, value_kinds> captions{"ﾃｷｽﾄ", "ﾃｷｽﾄﾌｧｲﾙ", "画像ﾌｧｲﾙ",
                                                        "ﾏﾙﾁﾒﾃﾞｨｱﾌｧｲﾙ", "ｱﾄﾞﾚｽ帳項目"};

}  // namespace

set_value::set_value()
    : Label1(window, "Label1", "タイトル", &title_txt),
      title_txt(window, "title_txt"),
      Label2(window, "Label2", "置換値にアドレス帳項目が選択された場合、自動的に設定されます。",
             nullptr, platform::Label::lines::two),
      text_option(window, "Option1(0)", captions[text_value]),
      Text1(window, "Text1", platform::TextBox::lines::several),
      text_file_option(window, "Option1(1)", captions[text_file_value]),
      Text2(window, "Text2"),
      Command3(window, "Command3", "..."),
      image_file_option(window, "Option1(2)", captions[image_file_value]),
      Text3(window, "Text3"),
      Command4(window, "Command4", "..."),
      multimedia_file_option(window, "Option1(3)", captions[multimedia_file_value]),
      Text4(window, "Text4"),
      Command5(window, "Command5", "..."),
      field_option(window, "Option1(4)", captions[field_value]),
      Combo1(window, "Combo1"),
      Command1(window, "Command1", "OK"),
      Command2(window, "Command2", "ｷｬﾝｾﾙ") {
  window.body = column({row({Label1, title_txt, Label2}), text_option, Text1, text_file_option,
                        row({Text2, Command3}), image_file_option, row({Text3, Command4}),
                        multimedia_file_option, row({Text4, Command5}), field_option, Combo1,
                        row({platform::stretch(), Command1, Command2})});
  connect();
}

void set_value::connect() {
  window.on_load = [this] { load(); };
  for (platform::OptionButton* option : Option1) option->on_click = [this] { option_selected(); };
  for (std::size_t kind = 0; kind < boxes_.size(); ++kind) {
    boxes_[kind]->on_change = [this, kind] { text_changed(kind); };
  }
  Combo1.on_click = [this] { field_chosen(); };
  Command3.on_click = [this] { browse(Text2, "Text Files(*.txt)|*.txt|All Files(*.*)|*.*"); };
  Command4.on_click = [this] {
    browse(Text3, "Image Files(*.jpg,*.bmp,*.gif)|*.jpg;*.bmp;*.gif|All Files(*.*)|*.*");
  };
  Command5.on_click = [this] {
    browse(Text4,
           "Media Files(*.avi,*.mpeg,*.mpg,*.rm,*.ram)|*.avi;*.mpeg;*.mpg;*.rm;*.ram"
           "|All Files(*.*)|*.*");
  };
  Command1.on_click = [this] { ok(); };
  Command2.on_click = [this] { window.unload(); };
}

// The boxes bear no labels of their own for a screen reader to say.
void set_value::name_controls() {
  for (std::size_t kind = 0; kind < boxes_.size(); ++kind) {
    boxes_[kind]->set_accessible_name(captions[kind]);
  }
  Combo1.set_accessible_name(captions[field_value]);
  std::size_t kind = text_file_value;
  for (platform::CommandButton* browse : {&Command3, &Command4, &Command5}) {
    browse->set_accessible_name(std::string(captions[kind++]) + "の参照");
  }
}

std::optional<value_kind> set_value::selected_kind() {
  for (std::size_t kind = 0; kind < Option1.size(); ++kind) {
    if (Option1[kind]->selected()) return static_cast<value_kind>(kind);
  }
  return std::nullopt;
}

// One kind at a time: selecting it empties the inputs of the others.
void set_value::option_selected() {
  const auto kind = selected_kind();
  title_txt.set_enabled(kind != field_value);
  for (std::size_t other = 0; other < boxes_.size(); ++other) {
    if (other != kind) boxes_[other]->set_text("");
  }
}

void set_value::text_changed(std::size_t kind) {
  if (!boxes_[kind]->is_empty()) Option1[kind]->select();
}

// A value that is a field bears the field's name.
void set_value::field_chosen() {
  const std::string name = Combo1.text();
  if (name.empty()) return;
  title_txt.set_text(name);
  field_option.select();
}

void set_value::browse(platform::TextBox& box, const char* filter) {
  openDlg.Filter = filter;
  const std::string path = openDlg.ShowOpen();
  if (!path.empty()) box.set_text(path);
}

}  // namespace ta_vorlumine
