#pragma once

#include <functional>

#include "store/engine.h"

namespace ta_vorlumine {

/// The one transaction that a condition dialog is, from its load to its OK or its closing.
class condition_transaction {
 public:
  void begin();

  /// Runs `work`, whose first write may find that another program has written since the dialog
  /// began to read, or is writing: then the transaction begins anew, after the other one where the
  /// engine can wait for that, and `work` runs again, a bounded number of times. On any failure of
  /// `work` what it wrote is taken back, a new transaction begins, and the failure goes on.
  void run(const std::function<void()>& work);

  /// Commits; from here on closing the dialog takes nothing back.
  void commit();

  /// The dialog closes: takes back what was not committed.
  void end() noexcept;

 private:
  void run_while_stale(const std::function<void()>& work);
  static void begin_anew(ADODB::purpose purpose);

  bool cond_saved_ = false;
};

}  // namespace ta_vorlumine
