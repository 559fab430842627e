#include "ta_vorlumine/replace_class.h"

#include <memory>
#include <stdexcept>

#include "browser/replace_form.h"
#include "platform/application.h"
#include "platform/shown_failures.h"
#include "platform/waiting_note.h"
#include "rules/failure_words.h"
#include "store/waiting.h"

namespace ta_vorlumine {
namespace {

const char* words_of(ADODB::awaited what) {
  switch (what) {
    case ADODB::awaited::connection:
      return "サーバーに接続しています…";
    case ADODB::awaited::lock:
      return "他のプログラムの処理が終わるのを待っています…";
    default:
      return "サーバーの応答を待っています…";
  }
}

class waiting_window : public ADODB::shown_wait {
 public:
  explicit waiting_window(ADODB::awaited what) : note_(words_of(what)) {}
  [[nodiscard]] bool goes_on() override { return note_.goes_on(); }

 private:
  platform::waiting_note note_;
};

/// The connection of the thread's forms for one call; closes it if the call fails.
class open_store {
 public:
  open_store(ADODB::Connection& connection, const std::string& connect_string)
      : connection_(connection) {
    connection_.while_waiting = [](ADODB::awaited what) {
      return std::make_unique<waiting_window>(what);
    };
    connection_.Open(connect_string);
  }
  open_store(const open_store&) = delete;
  open_store& operator=(const open_store&) = delete;
  ~open_store() {
    try {
      if (connection_.is_open()) connection_.Close();
    } catch (const std::exception&) {
      // Another failure is on its way to the host already.
    }
  }

  void close() { connection_.Close(); }

 private:
  ADODB::Connection& connection_;
};

}  // namespace

void replaceClass::replace_show() {
  auto& browser = platform::form<replaceForm>();
  if (browser.conn.is_open()) {
    throw std::runtime_error("the title browser runs on this thread already");
  }
  platform::application application;
  platform::word_failures_by(words_for);
  open_store store(browser.conn, CONNECT_STRING);
  browser.window.show();
  store.close();
  application.rethrow_hosts_failure();
}

const char* replaceClass::version() noexcept {
  return TA_VORLUMINE_VERSION;
}

}  // namespace ta_vorlumine
