#pragma once

namespace rule_store {

/// While it lives, a first Ctrl+C, a hang-up or a request to end waits until the program has tidied
/// up; a second one ends the program at once. The program ends by the signal when this goes away.
class held_signals {
 public:
  held_signals();
  held_signals(const held_signals&) = delete;
  held_signals& operator=(const held_signals&) = delete;
  ~held_signals();

  [[nodiscard]] static bool any();
};

}  // namespace rule_store
