#pragma once

#include <string>
#include <string_view>

#include "store/recordset.h"

namespace ta_vorlumine {

/// A column of the current row.
[[nodiscard]] ADODB::Value column(const ADODB::Recordset& rs, std::string_view name);

/// A column as text for a place of a statement; empty for null and on any failure.
[[nodiscard]] std::string record_text(const ADODB::Recordset& rs, const std::string& fid);

/// The same with each "'" doubled, for whoever writes a statement as a bare text.
[[nodiscard]] std::string GetRecordValue(const ADODB::Recordset& rs, const std::string& fid);

/// A column as text for an unquoted place; "0" for null, for an empty text and on any failure.
[[nodiscard]] std::string GetRecordNum(const ADODB::Recordset& rs, const std::string& fid);

}  // namespace ta_vorlumine
