#include <cstdlib>
#include <string>
#include <string_view>

#include "store/connection_string.h"
#include "store/error.h"

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  const std::string_view text(data, size);
  try {
    static_cast<void>(limits_of(ADODB::read_connection_string(text)));
  } catch (const ADODB::Error& failure) {
    // A value may be a password. The seeds have this word in theirs.
    if (std::string_view(failure.what()).find("secret") != std::string_view::npos) std::abort();
  }
  return 0;
}
