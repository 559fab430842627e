#include "conditions/r_date_cond.h"
#include "conditions/r_number_cond.h"
#include "conditions/r_text_cond.h"
#include "conditions/r_yesno_cond.h"
#include "editor/replace_create.h"
#include "rules/text_limits.h"
#include "rules/with_undo.h"

namespace ta_vorlumine {
namespace {

using platform::form;

/// Setting the caption of the label loads the dialog, and so starts its transaction, before the
/// grid is filled. A dialog that can't be filled is unloaded, which ends the transaction.
template <class Fill>
void show_with_field(platform::Form& window, platform::Label& label, Fill fill) {
  label.set_caption(shared().f_fieldname);
  with_undo(fill, [&] { window.unload(); });
  window.show();
}

void show_lines(condition_dialog& dialog, int longest) {
  show_with_field(dialog.window, dialog.Label1, [&] {
    dialog.load_lines();
    dialog.fg.EditMaxLength(longest);
  });
}

}  // namespace

void replace_create::load_text_cond_grid() {
  show_lines(form<r_text_cond>().dialog, f_attr == "T" ? static_cast<int>(longest_text) : 0);
}

void replace_create::load_date_cond_grid() {
  show_lines(form<r_date_cond>().dialog, 0);
}

void replace_create::load_number_cond_grid() {
  show_lines(form<r_number_cond>().dialog, 0);
}

void replace_create::show_yesno_cond() {
  auto& dialog = form<r_yesno_cond>();
  show_with_field(dialog.window, dialog.Label1, [] {});
}

}  // namespace ta_vorlumine
