#pragma once

namespace ta_vorlumine {

/// Runs `work`. If it fails, runs `undo` and lets the failure of `work` go on; a failure of `undo`
/// as well is dropped, because the first one is the one to tell.
template <class Work, class Undo>
void with_undo(Work work, Undo undo) {
  try {
    work();
  } catch (...) {
    try {
      undo();
    } catch (...) {
    }
    throw;
  }
}

}  // namespace ta_vorlumine
