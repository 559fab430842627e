#pragma once

#include "platform/combo_box.h"
#include "platform/command_button.h"
#include "platform/form.h"
#include "platform/label.h"

namespace ta_vorlumine {

/// The picker that hangs a field of the address book under the selected node of the rule tree. It
/// writes its row and has the editor build the tree anew.
class address_add {
 public:
  address_add();

  platform::Form window{"address_add", "ﾃﾞｰﾀﾍﾞｰｽ項目の設定", 5865, 1425};
  platform::Label Label1;
  platform::ComboBox Combo1;
  platform::CommandButton Command1;
  platform::CommandButton Command2;

 private:
  void load();
  void ok();
};

}  // namespace ta_vorlumine
