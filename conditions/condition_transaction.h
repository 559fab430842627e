#pragma once

#include <functional>

#include "store/engine.h"

namespace ta_vorlumine {

/// The transaction that a condition dialog is. From its load on, what the dialog deletes at once is
/// taken back unless its OK goes through. OK begins anew, so that it sees the store as it is by
/// then, and holds the definition against other editors while it writes.
class condition_transaction {
 public:
  void begin();

  /// Runs `work`, whose first write may find that another program has written since the dialog
  /// began to read, or is writing: then the transaction begins anew, after the other one where the
  /// engine can wait for that, and `work` runs again, a bounded number of times; once also after a
  /// lost connection. On any failure of `work` what it wrote is taken back, a new transaction
  /// begins, and the failure goes on.
  void run(const std::function<void()>& work);

  /// Runs `work`, which only looks something up. If the connection is lost, it ends there without a
  /// word, and until the next run() or store() no other look is tried.
  static void look(const std::function<void()>& work);

  /// Runs the `work` of OK in a transaction of its own, in place of the one before, and commits if
  /// it gives true; from then on closing the dialog takes nothing back. It is run again where run()
  /// would, and where a number that it drew is taken meanwhile. Without the commit, by false or by
  /// a failure, all is taken back and a new transaction begins. Raises vanished_row if the
  /// definition is gone.
  bool store(const std::function<bool()>& work);

  /// The dialog closes: takes back what was not committed.
  void end() noexcept;

 private:
  bool store_once(const std::function<bool()>& work);
  static void begin_anew(ADODB::purpose purpose);

  bool cond_saved_ = false;
};

}  // namespace ta_vorlumine
