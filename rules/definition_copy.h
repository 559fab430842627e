#pragma once

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// A copied definition: its key, and the key reserved for its top rule row.
struct copied_definition {
  std::int16_t replace_no;
  std::int16_t replace_m_no;
};

/// Copies a definition with its rule rows and lines under new keys, into the folder of the source,
/// as one transaction: whole or not at all. Raises vanished_row if the source is gone.
copied_definition copy_definition(ADODB::Connection& conn, row_key source);

/// Deletes a definition with its rule rows and lines, the definition's own row last: what could not
/// be deleted before it the user still sees, and can delete.
void discard_definition(ADODB::Connection& conn, row_key replace_no);

}  // namespace ta_vorlumine
