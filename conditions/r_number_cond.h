#pragma once

#include "conditions/condition_dialog.h"

namespace ta_vorlumine {

/// The lines of a number condition: ranges, open at one end if the user wishes.
class r_number_cond {
 public:
  r_number_cond();

  condition_dialog dialog;
};

}  // namespace ta_vorlumine
