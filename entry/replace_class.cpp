#include "ta_vorlumine/replace_class.h"

#include <stdexcept>

#include "browser/replace_form.h"
#include "platform/application.h"
#include "platform/shown_failures.h"
#include "rules/failure_words.h"

namespace ta_vorlumine {
namespace {

/// The connection of the thread's forms for one call; closes it if the call fails.
class open_store {
 public:
  open_store(ADODB::Connection& connection, const std::string& connect_string)
      : connection_(connection) {
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
  const platform::application application;
  platform::word_failures_by(words_for);
  open_store store(browser.conn, CONNECT_STRING);
  browser.window.show();
  store.close();
}

}  // namespace ta_vorlumine
