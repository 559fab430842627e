#include "rules/record_values.h"

#include <exception>

namespace ta_vorlumine {
namespace {

std::string doubled(const std::string& text) {
  std::string result;
  for (const char letter : text) result.append(letter == '\'' ? 2 : 1, letter);
  return result;
}

}  // namespace

ADODB::Value column(const ADODB::Recordset& rs, std::string_view name) {
  return rs.Fields().Item(name).Value();
}

std::string record_text(const ADODB::Recordset& rs, const std::string& fid) {
  try {
    return column(rs, fid).text();
  } catch (const std::exception&) {
    return {};
  }
}

std::string GetRecordValue(const ADODB::Recordset& rs, const std::string& fid) {
  return doubled(record_text(rs, fid));
}

std::string GetRecordNum(const ADODB::Recordset& rs, const std::string& fid) {
  try {
    const std::string text = column(rs, fid).text();  // of null it is empty
    return text.empty() ? "0" : text;
  } catch (const std::exception&) {
    return "0";
  }
}

}  // namespace ta_vorlumine
