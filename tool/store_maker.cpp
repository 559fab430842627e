#include "tool/store_maker.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "store/connection_string.h"
#include "store/error.h"
#include "store/postgresql_session.h"
#include "store/sqlite_database.h"
#include "store/text.h"
#include "tool/embedded_scripts.h"

namespace rule_store {
namespace {

// Creating and refusing what exists is one step of the system, so that of two programs that make
// the same store one fails.
void create_file(const std::string& path) {
  const int file = ::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
  if (file < 0)
    throw ADODB::Error(ADODB::failure_kind::other,
                       path + ": " + std::generic_category().message(errno));
  ::close(file);
}

void fill(const std::string& path, content wanted) {
  ADODB::sqlite_database database(path);
  database.run("PRAGMA journal_mode=WAL; BEGIN");
  database.run(sqlite_schema_script);
  if (wanted == content::sample) database.run(sample_script);
  database.run("COMMIT");
}

void make_file(const std::string& path, content wanted) {
  create_file(path);
  try {
    fill(path, wanted);
  } catch (...) {
    remove_store_file(path);
    throw;
  }
}

// Ending without the commit takes everything back.
void make_on_server(const ADODB::connection_settings& settings, content wanted) {
  ADODB::postgresql_session session(settings);
  if (session.encoding() != "UTF8")
    throw ADODB::Error(ADODB::failure_kind::other,
                       "the database holds texts in " + session.encoding() +
                           ", which lacks characters that a store must hold; it must be UTF8");
  session.run("BEGIN");
  session.run(postgresql_schema_script);
  if (wanted == content::sample) session.run(sample_script);
  session.run("COMMIT");
}

// A file may be named so, too, but the text may hold a password, which must not become a name.
bool looks_like_connection_string(std::string_view place) {
  return place.find_first_of("=;") != std::string_view::npos ||
         place.find("://") != std::string_view::npos;
}

std::string in_braces(const std::string& text) {
  std::string value = "{";
  for (const char letter : text) value.append(letter == '}' ? 2 : 1, letter);
  return value + '}';
}

// An entry that is not parted from the name by ";" belongs to the name.
std::string file_named_by(const ADODB::connection_settings& settings) {
  const std::string& path = settings.values.at("database");
  const std::string name = ADODB::lower(path);
  const bool names_password =
      name.find("pwd") != std::string::npos || name.find("passw") != std::string::npos;
  if (names_password && name.find('=') != std::string::npos)
    throw ADODB::Error(ADODB::failure_kind::other,
                       "connection string: the name of the Database holds a password");
  return path;
}

}  // namespace

void make_store(const std::string& place, content wanted) {
  if (!looks_like_connection_string(place)) return make_file(place, wanted);
  const auto settings = ADODB::read_connection_string(place);
  if (settings.driver == "sqlite") return make_file(file_named_by(settings), wanted);
  make_on_server(settings, wanted);
}

std::string connect_string_of(const std::string& place) {
  return looks_like_connection_string(place) ? place : "Driver=SQLite;Database=" + in_braces(place);
}

std::string missing_file(const std::string& place) {
  const auto settings = ADODB::read_connection_string(connect_string_of(place));
  if (settings.driver != "sqlite") return {};
  std::string file = file_named_by(settings);
  return std::filesystem::exists(file) ? std::string() : file;
}

void remove_store_file(const std::string& path) {
  std::error_code ignored;
  for (const char* suffix : {"", "-journal", "-wal", "-shm"})
    std::filesystem::remove(path + suffix, ignored);
}

}  // namespace rule_store
