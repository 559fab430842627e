#pragma once

#include <exception>
#include <string>

namespace platform {

/// From now on this says how a failure that an event has let through is worded for the user. Until
/// then a failure's own text is shown.
void word_failures_by(std::string (*words)(const std::exception& failure));

}  // namespace platform
