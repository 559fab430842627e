#include <sqlite3.h>

#include "store_faults.h"

namespace harness {
namespace {

constexpr auto refusal = "だめです";

class refused_statements : public store_faults {
 public:
  explicit refused_statements(test_store& store) {
    for (const char* event : {"insert", "update", "delete"}) {
      for (const char* table : {"replace", "replace_m", "replace_cond", "seqno"})
        store.refuse(event, table, refusal, "is_refused()");
    }
    only = this;
    sqlite3_auto_extension(entry());
  }
  ~refused_statements() override {
    sqlite3_cancel_auto_extension(entry());
    only = nullptr;
  }

  void fail(int number) override {
    wanted_ = number;
    seen_ = 0;
    refuse_write_ = refuse_commit_ = false;
  }
  [[nodiscard]] int seen() const override { return seen_; }
  [[nodiscard]] std::string failed() const override { return refused_; }
  [[nodiscard]] bool tells(const std::string& text) const override {
    return text == refusal || text == "interrupted" || text == "constraint failed";
  }

 private:
  static int on_open(sqlite3* database, char**, const void*) {
    sqlite3_trace_v2(database, SQLITE_TRACE_STMT, on_statement, database);
    sqlite3_commit_hook(
        database, [](void*) { return only && only->is_refused(only->refuse_commit_) ? 1 : 0; },
        nullptr);
    return sqlite3_create_function(database, "is_refused", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS,
                                   nullptr, answer_trigger, nullptr, nullptr);
  }
  static void (*entry())() { return reinterpret_cast<void (*)()>(on_open); }

  // Statements of triggers come as comments.
  static int on_statement(unsigned, void* database, void* statement, void* text) {
    const std::string running = static_cast<const char*>(text);
    const bool begins = running.starts_with("BEGIN") || running == "ROLLBACK";
    if (only && !running.starts_with("--") && !begins)
      only->count(running, static_cast<sqlite3*>(database), static_cast<sqlite3_stmt*>(statement));
    return 0;
  }

  static void answer_trigger(sqlite3_context* context, int, sqlite3_value**) {
    sqlite3_result_int(context, only && only->is_refused(only->refuse_write_) ? 1 : 0);
  }

  void count(const std::string& running, sqlite3* database, sqlite3_stmt* statement) {
    running_ = running;
    const bool is_hit = ++seen_ == wanted_;
    refuse_commit_ = is_hit && running == "COMMIT";
    refuse_write_ = is_hit && !refuse_commit_ && sqlite3_stmt_readonly(statement) == 0;
    if (!is_hit || refuse_commit_ || refuse_write_) return;
    refused_ = running;
    sqlite3_interrupt(database);
  }
  bool is_refused(bool refuse) {
    if (refuse) refused_ = running_;
    return refuse;
  }

  static inline refused_statements* only = nullptr;
  int wanted_ = 0;
  int seen_ = 0;
  std::string running_;
  bool refuse_write_ = false;
  bool refuse_commit_ = false;
  std::string refused_;
};

}  // namespace

std::unique_ptr<store_faults> refused_statement(test_store& store) {
  return std::make_unique<refused_statements>(store);
}

}  // namespace harness
