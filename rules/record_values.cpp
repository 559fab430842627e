#include <exception>

#include "rules/record_values.h"

namespace ta_vorlumine {
namespace {

std::string doubled(const std::string& text) {
  std::string result;
  for (const char letter : text) result.append(letter == '\'' ? 2 : 1, letter);
  return result;
}

}  // namespace

std::string record_text(const ADODB::Recordset& rs, const std::string& fid) {
  try {
    return rs.Fields().Item(fid).Value().text();
  } catch (const std::exception&) {
    return {};
  }
}

std::string GetRecordValue(const ADODB::Recordset& rs, const std::string& fid) {
  return doubled(record_text(rs, fid));
}

std::string GetRecordNum(const ADODB::Recordset& rs, const std::string& fid) {
  try {
    const ADODB::Value value = rs.Fields().Item(fid).Value();
    const std::string text = value.text();  // of null it is empty
    return text.empty() ? "0" : text;
  } catch (const std::exception&) {
    return "0";
  }
}

}  // namespace ta_vorlumine
