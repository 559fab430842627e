#include "statement_faults.h"

#include <sqlite3.h>

namespace harness {
namespace {

statement_faults* faults = nullptr;

constexpr auto refusal = "だめです";

}  // namespace

struct statement_faults::callbacks {
  static int on_open(sqlite3* database, char**, const void*) {
    sqlite3_trace_v2(database, SQLITE_TRACE_STMT, on_statement, database);
    sqlite3_commit_hook(database, on_commit, nullptr);
    return sqlite3_create_function(database, "is_refused", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS,
                                   nullptr, is_refused, nullptr, nullptr);
  }

  // Statements of triggers come as comments.
  static int on_statement(unsigned, void* database, void* statement, void* text) {
    const std::string running = static_cast<const char*>(text);
    const bool begins = running.starts_with("BEGIN") || running == "ROLLBACK";
    if (!faults || running.starts_with("--") || begins) return 0;
    faults->running_ = running;
    faults->refuse_write_ = faults->refuse_commit_ = false;
    if (++faults->seen_ != faults->wanted_) return 0;
    if (running == "COMMIT") {
      faults->refuse_commit_ = true;
    } else if (sqlite3_stmt_readonly(static_cast<sqlite3_stmt*>(statement)) == 0) {
      faults->refuse_write_ = true;
    } else {
      faults->refused_ = running;
      sqlite3_interrupt(static_cast<sqlite3*>(database));
    }
    return 0;
  }

  static void is_refused(sqlite3_context* context, int, sqlite3_value**) {
    if (faults && faults->refuse_write_) faults->refused_ = faults->running_;
    sqlite3_result_int(context, faults && faults->refuse_write_ ? 1 : 0);
  }

  static int on_commit(void*) {
    if (!faults || !faults->refuse_commit_) return 0;
    faults->refused_ = faults->running_;
    return 1;
  }

  static auto entry() { return reinterpret_cast<void (*)()>(on_open); }
};

statement_faults::statement_faults(test_store& store) {
  for (const char* event : {"insert", "update", "delete"}) {
    for (const char* table : {"replace", "replace_m", "replace_cond", "seqno"})
      store.refuse(event, table, refusal, "is_refused()");
  }
  faults = this;
  sqlite3_auto_extension(callbacks::entry());
}

statement_faults::~statement_faults() {
  sqlite3_cancel_auto_extension(callbacks::entry());
  faults = nullptr;
}

void statement_faults::fail(int number) {
  wanted_ = number;
  seen_ = 0;
  refuse_write_ = refuse_commit_ = false;
}

bool statement_faults::tells(const std::string& text) const {
  return text == refusal || text == "interrupted" || text == "constraint failed";
}

}  // namespace harness
