#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace harness {

inline std::string content_of(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The lines of a file of this folder.
inline std::vector<std::string> lines_of(const std::string& name) {
  std::istringstream content(content_of(PROJECT_ROOT "/tests/" + name));
  std::vector<std::string> lines;
  for (std::string line; std::getline(content, line);) lines.push_back(line);
  return lines;
}

}  // namespace harness
