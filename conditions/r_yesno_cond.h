#pragma once

#include "conditions/condition_transaction.h"
#include "conditions/new_condition.h"
#include "platform/combo_box.h"
#include "platform/command_button.h"
#include "platform/form.h"
#include "platform/label.h"
#include "store/value.h"

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
  [[nodiscard]] bool may_overwrite();
  [[nodiscard]] bool store_answer(bool answer);
  [[nodiscard]] bool find_number(std::int64_t children);

  condition_transaction transaction_;
  new_condition new_row_;
  ADODB::Value known_answer_;  // as read, or as the user agreed to write over it
  bool was_told_ = false;
};

}  // namespace ta_vorlumine
