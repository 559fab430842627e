#pragma once

#include "platform/combo_box.h"

namespace ta_vorlumine {

/// Fills `list` with the names of the address book's fields, in the order of the store. Overwrites
/// shared().basRS.
void fill_field_list(platform::ComboBox& list);

}  // namespace ta_vorlumine
