#include <cstdlib>
#include <string>

#include "store/connection.h"
#include "store/error.h"
#include "store/sql.h"
#include "test_store.h"

namespace {

/// What was typed comes back as it is, whatever it says: it never is a part of the words.
void send(ADODB::Connection& conn, const std::string& typed) {
  const auto row = conn.Execute(ADODB::sql("select '<typed>' as a, 1 as b", {typed}));
  if (row.Fields().Count() != 2 || row.Fields().Item("a").Value().text() != typed) std::abort();
  try {
    static_cast<void>(conn.Execute(ADODB::sql("select <typed> as a", {typed})));
    static_cast<void>(
        conn.Execute(ADODB::sql("select '<typed>' as a", {ADODB::argument::typed_number(typed)})));
  } catch (const ADODB::Error&) {
    return;  // no number
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  static harness::test_store store;
  ADODB::Connection conn;
  conn.Open(store.connect_string());
  send(conn, {data, size});
  return 0;
}
