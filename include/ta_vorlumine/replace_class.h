#pragma once

#include <string>

#if defined(__GNUC__)
#define TA_VORLUMINE_API __attribute__((visibility("default")))
#else
#define TA_VORLUMINE_API
#endif

namespace ta_vorlumine {

/// The editor of replacement definitions, to be embedded in a host program.
class TA_VORLUMINE_API replaceClass {
 public:
  /// Names the rule store (UTF-8): "Driver=SQLite;Database=<path of an existing store>".
  std::string CONNECT_STRING;

  /// Opens the store, runs the title browser modally on the calling thread, and returns when the
  /// user has closed it; everything the user did stands in the store. Raises an exception derived
  /// from std::runtime_error, its text in UTF-8, if the store can't be opened or read, if the
  /// thread can show no window, or if the browser runs on this thread already. A later call works.
  void replace_show();

  /// The version of the library that runs, such as "1.2.3".
  [[nodiscard]] static const char* version() noexcept;
};

}  // namespace ta_vorlumine
