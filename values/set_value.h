#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/combo_box.h"
#include "platform/command_button.h"
#include "platform/common_dialog.h"
#include "platform/form.h"
#include "platform/label.h"
#include "platform/option_button.h"
#include "platform/text_box.h"
#include "store/recordset.h"
#include "values/value_statements.h"

namespace ta_vorlumine {

/// The dialog of one value of the rule tree. It changes the value that is selected, or adds one
/// below the selected node.
class set_value {
 public:
  set_value();

  platform::Form window{"set_value", "置換値設定", 10800, 8100};
  platform::Label Label1;
  platform::TextBox title_txt;
  platform::Label Label2;
  platform::OptionButton text_option;
  platform::TextBox Text1;
  platform::OptionButton text_file_option;
  platform::TextBox Text2;
  platform::CommandButton Command3;
  platform::OptionButton image_file_option;
  platform::TextBox Text3;
  platform::CommandButton Command4;
  platform::OptionButton multimedia_file_option;
  platform::TextBox Text4;
  platform::CommandButton Command5;
  platform::OptionButton field_option;
  platform::ComboBox Combo1;
  platform::CommandButton Command1;
  platform::CommandButton Command2;
  platform::CommonDialog openDlg{"TEXT File Open"};

  /// The options as a group, by value_kind.
  const std::array<platform::OptionButton*, value_kinds> Option1{
      &text_option, &text_file_option, &image_file_option, &multimedia_file_option, &field_option};

 private:
  void connect();

  void load();
  void name_controls();
  void show_value(const ADODB::Fields& row);

  void option_selected();
  void text_changed(std::size_t kind);
  void field_chosen();
  void browse(platform::TextBox& box, const char* filter);

  void ok();
  [[nodiscard]] std::optional<value_kind> selected_kind();
  /// Whether the value is there that the kind needs; if not, the user has been told.
  [[nodiscard]] bool has_content(value_kind kind);
  [[nodiscard]] std::string content(value_kind kind, const std::string& title);

  /// The input of each kind but the field.
  const std::array<platform::TextBox*, 4> boxes_{&Text1, &Text2, &Text3, &Text4};
};

}  // namespace ta_vorlumine
