#pragma once

#include "conditions/condition_dialog.h"

namespace ta_vorlumine {

/// The lines of a text condition: values to compare with, each with a way of comparing.
class r_text_cond {
 public:
  r_text_cond();

  condition_dialog dialog;
};

}  // namespace ta_vorlumine
