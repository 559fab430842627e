#pragma once

#include "platform/combo_box.h"
#include "platform/command_button.h"
#include "platform/form.h"
#include "platform/label.h"

namespace ta_vorlumine {

/// The picker that hangs a field of the address book under the selected node of the rule tree. It
/// writes its row.
class address_add {
 public:
  address_add();

  platform::Form window{"address_add", "ﾃﾞｰﾀﾍﾞｰｽ項目の設定", 5865, 1425};
  platform::Label Label1;
  platform::ComboBox Combo1;
  platform::CommandButton Command1;
  platform::CommandButton Command2;

  /// Whether the run that has ended changed the rule tree, or found it changed.
  bool changed_tree = false;

 private:
  void load();
  void ok();
};

}  // namespace ta_vorlumine
