#include "rules/shared_state.h"

namespace ta_vorlumine {

edit_mode shared_state::mode() const {
  return static_cast<edit_mode>(std::stoi(basAU));
}

void shared_state::set_mode(edit_mode mode) {
  basAU = std::to_string(static_cast<int>(mode));
}

row_key shared_state::selected_key() const {
  return std::stoll(basNodeKey);
}

shared_state& shared() {
  thread_local shared_state state;
  return state;
}

}  // namespace ta_vorlumine
