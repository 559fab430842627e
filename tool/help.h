#pragma once

#include <string_view>

namespace rule_store {

/// How a command is called and what it does.
struct help_text {
  std::string_view arguments;  ///< behind the command's name
  std::string_view summary;
  std::string_view details;
};

inline constexpr help_text init_help{
    "STORE [--sample]", "makes a store",
    R"(Makes the store STORE: a file, which must not exist, or the tables in the
database of a server, which must not have them.

  --sample        puts the fields of an address book and some 40 definitions in
)"};

inline constexpr help_text check_help{
    "STORE [--repair]", "tells what breaks the shape of a store, or mends it",
    R"(Writes what breaks the shape of the store, a line each. It only reads. The exit
status is 3 if there is anything to tell.

  --repair        first mends what no window shows, all or nothing, and writes
                  what it did: folders and definitions of a missing folder come
                  back under the root; rule rows without a definition or a
                  parent go with all below them, as do lines of no condition;
                  counters that lag are raised. The exit status is about what
                  is left
)"};

inline constexpr help_text print_help{
    "STORE [--keys | --json]", "writes a store as text or as JSON",
    R"(Writes folders, definitions and rules as text that compares well. It only reads.

  --keys          with the keys of the rows
  --json          the rows of the five tables as one JSON object
)"};

inline constexpr help_text copy_help{
    "STORE NEW_STORE", "copies a store to a file or a server",
    R"(Copies a whole store: into a new file, or into a store of either engine that
holds no rows yet. All of it is copied, or nothing. Rows that the target can't
hold are named, and so are faults of the source, which the copy has, too.
)"};

inline constexpr std::string_view common_help =
    R"(
Options of every command:
  -q, --quiet     does not show on the terminal how far it is
  -h, --help      shows this help, or that of a command
      --version   shows the version

A store is named by the path of a file, or by a connection string, which has a
"=" or ";" in it:
  rule_store.db
  "Driver=PostgreSQL;Server=db.example.org;Database=rules;Uid=me"

Exit status: 0 done, 1 failed, 2 called wrongly, 3 faults found by a check.
)";

}  // namespace rule_store
