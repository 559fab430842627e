#pragma once

#include "conditions/condition_transaction.h"
#include "platform/combo_box.h"
#include "platform/command_button.h"
#include "platform/form.h"
#include "platform/label.h"

namespace ta_vorlumine {

/// The answer of a yes/no condition. Its one line is written when the dialog opens, inside the
/// transaction that the dialog is, and gets its answer on OK.
class r_yesno_cond {
 public:
  r_yesno_cond();

  platform::Form window{"r_yesno_cond", "置換条件の設定", 6675, 1440};
  platform::ComboBox Combo1;
  platform::Label Label1;
  platform::CommandButton Command1;
  platform::CommandButton Command2;

 private:
  void load();
  void read_answer();
  void ok();
  void store_answer(bool answer);
  void make_row();

  condition_transaction transaction_;
};

}  // namespace ta_vorlumine
