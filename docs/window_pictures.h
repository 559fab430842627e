#pragma once

#include <string>
#include <vector>

namespace harness {

/// What the test program does with "--pictures FOLDER [--dark]": draws the windows over the sample
/// into PNG files, for the README. Gives the number of those that could not be written.
int pictures_command(const std::vector<std::string>& arguments);

}  // namespace harness
