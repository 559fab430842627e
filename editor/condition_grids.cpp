#include <exception>

#include "conditions/r_date_cond.h"
#include "conditions/r_number_cond.h"
#include "conditions/r_text_cond.h"
#include "conditions/r_yesno_cond.h"
#include "editor/replace_create.h"

namespace ta_vorlumine {
namespace {

using platform::form;

constexpr int longest_value = 100;

/// Naming the field loads the dialog, and with it starts its transaction, before the grid is
/// filled. A dialog that can't be filled must not leave the transaction behind.
template <class Fill>
void open(platform::Form& window, platform::Label& label, const std::string& field, Fill fill) {
  label.set_caption(field);
  try {
    fill();
  } catch (...) {
    try {
      window.unload();
    } catch (const std::exception&) {
      // The failure that led here is the one to tell.
    }
    throw;
  }
  window.show();
}

}  // namespace

void replace_create::load_text_cond_grid() {
  condition_dialog& dialog = form<r_text_cond>().dialog;
  open(dialog.window, dialog.Label1, f_fieldname, [&] {
    dialog.load_lines();
    dialog.fg.EditMaxLength(f_attr == "T" ? longest_value : 0);
  });
}

void replace_create::load_date_cond_grid() {
  condition_dialog& dialog = form<r_date_cond>().dialog;
  open(dialog.window, dialog.Label1, f_fieldname, [&] { dialog.load_lines(); });
}

void replace_create::load_number_cond_grid() {
  condition_dialog& dialog = form<r_number_cond>().dialog;
  open(dialog.window, dialog.Label1, f_fieldname, [&] { dialog.load_lines(); });
}

void replace_create::show_yesno_cond() {
  auto& dialog = form<r_yesno_cond>();
  open(dialog.window, dialog.Label1, f_fieldname, [] {});
}

}  // namespace ta_vorlumine
