#pragma once

namespace rule_store {

extern const char* const version;  ///< of the project

/// The SQL scripts that the tool carries in itself, so that it needs no file beside it.
extern const char* const sqlite_schema_script;      ///< makes the empty tables in a file
extern const char* const postgresql_schema_script;  ///< makes the same ones on a server
extern const char* const sample_script;             ///< fills them with the sample definitions

}  // namespace rule_store
