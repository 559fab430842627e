#pragma once

#include <string>

#include "platform/command_button.h"
#include "platform/form.h"
#include "platform/label.h"
#include "platform/text_box.h"
#include "rules/row_key.h"

namespace ta_vorlumine {

/// The dialog that names a new folder or renames one, by shared().mode().
/// It writes to the store and patches the title tree.
class replaceFolder {
 public:
  replaceFolder();

  platform::Form window{"replaceFolder", "置換フォルダの作成", 6000, 1500};
  platform::TextBox Text1;
  platform::Label Label1;
  platform::CommandButton Command2;
  platform::CommandButton Command3;

 private:
  void load();
  void ok();
  void add_folder(const std::string& name);
  void rename_folder(const std::string& name);
  [[nodiscard]] static bool is_stored(row_key key, const std::string& name);

  row_key tried_key_ = 0;  // of the folder whose row this opening has written, committed or not
};

}  // namespace ta_vorlumine
