#include "store/fingerprint.h"

#include <array>
#include <charconv>
#include <utility>

namespace ADODB {

std::string fingerprint::text() const {
  std::string digits(32, '0');
  for (const auto& [number, end] : {std::pair(first_, 16), std::pair(second_, 32)}) {
    std::array<char, 16> written;
    const char* const written_end =
        std::to_chars(written.data(), written.data() + written.size(), number, 16).ptr;
    const auto size = static_cast<std::size_t>(written_end - written.data());
    digits.replace(end - size, size, written.data(), size);
  }
  return digits;
}

}  // namespace ADODB
