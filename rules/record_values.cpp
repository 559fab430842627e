#include <exception>

#include "rules/record_values.h"

namespace ta_vorlumine {
namespace {

std::string doubled(const std::string& text) {
  std::string result;
  for (const char c : text) result += c == '\'' ? "''" : std::string(1, c);
  return result;
}

}  // namespace

std::string GetRecordValue(const ADODB::Recordset& rs, const std::string& fid) {
  try {
    return doubled(rs.Fields().Item(fid).Value().text());
  } catch (const std::exception&) {
    return {};
  }
}

std::string GetRecordNum(const ADODB::Recordset& rs, const std::string& fid) {
  try {
    const ADODB::Value value = rs.Fields().Item(fid).Value();
    return value.is_null() ? "0" : value.text();
  } catch (const std::exception&) {
    return "0";
  }
}

}  // namespace ta_vorlumine
