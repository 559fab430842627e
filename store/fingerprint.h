#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ADODB {

/// A digest of 128 bits, so wide that two different contents never share one by chance. It is the
/// same in every program and on every machine.
class fingerprint {
 public:
  constexpr void add(std::uint64_t piece) {
    // Two FNV-1a hashes side by side. They start apart and multiply by different odd numbers, so
    // that contents that meet in one of them don't meet in the other.
    first_ = (first_ ^ piece) * 0x00000100000001b3;
    second_ = (second_ ^ piece) * 0x9e3779b97f4a7c55;
  }
  constexpr void add(std::string_view text) {
    for (const char letter : text) add(std::uint64_t{static_cast<unsigned char>(letter)});
  }

  [[nodiscard]] constexpr std::size_t hash() const { return static_cast<std::size_t>(first_); }
  /// 32 hexadecimal digits.
  [[nodiscard]] std::string text() const;

 private:
  std::uint64_t first_ = 0xcbf29ce484222325;
  std::uint64_t second_ = 0x6c62272e07bb0142;
};

}  // namespace ADODB
