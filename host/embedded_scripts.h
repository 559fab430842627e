#pragma once

namespace rule_store {

/// The SQL scripts that the tool carries in itself, so that it needs no file beside it.
extern const char* const schema_script;  ///< makes the empty tables
extern const char* const sample_script;  ///< fills them with the sample definitions

}  // namespace rule_store
