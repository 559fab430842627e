#pragma once

#include <functional>

#include "conditions/condition_dialog.h"
#include "platform/system_date.h"

namespace ta_vorlumine {

/// The lines of a date condition: ranges, open at one end if the user wishes.
class r_date_cond {
 public:
  r_date_cond();

  condition_dialog dialog;
  /// Tells today and how the system writes it.
  std::function<platform::system_date()> system_date = platform::read_system_date;

 private:
  [[nodiscard]] condition_lines description();
  void validate(VSFlexGrid& fg, int col) const;
};

}  // namespace ta_vorlumine
