#include <QString>
#include <algorithm>
#include <cstdlib>
#include <string>

#include "controls/grid/grid_paste.h"

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  const auto text = QString::fromUtf8(data, static_cast<qsizetype>(size));
  const auto rows = ta_vorlumine::copied_cells(text);
  std::size_t letters = 0;
  for (const auto& row : rows) {
    if (row.empty()) std::abort();
    for (const std::string& cell : row) {
      letters += cell.size();
      if (cell.find_first_of("\n\r") != std::string::npos) std::abort();
    }
  }
  // Nothing is made up: a half of a character may become the sign for one, of three bytes.
  if (letters > 3 * static_cast<std::size_t>(text.size())) std::abort();
  return 0;
}
