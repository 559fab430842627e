#include "platform/displays.h"

#include <gtest/gtest.h>

#include <map>

namespace {

/// What the toolkit would be asked for in such an environment, or why nothing can be shown there.
std::string platform_in(const std::map<QByteArray, QByteArray>& environment) {
  std::map<QByteArray, QByteArray> before;
  for (const auto& [name, value] : environment) {
    before[name] = qgetenv(name);
    value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
  }
  std::string found;
  try {
    found = platform::usable_platform().toStdString();
  } catch (const std::runtime_error& failure) {
    found = failure.what();
  }
  for (const auto& [name, value] : before) value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
  return found;
}

TEST(Displays, AreTriedBeforeTheToolkitMayEndTheProcess) {
  const auto asked = [](const char* choices) {
    return platform_in(
        {{"QT_QPA_PLATFORM", choices}, {"DISPLAY", ""}, {"WAYLAND_DISPLAY", "none"}});
  };
  EXPECT_EQ(asked("offscreen"), "offscreen");
  EXPECT_EQ(asked("xcb;wayland-egl;Minimal:size=1"), "Minimal:size=1");
  for (const char* unusable : {"xcb", "wayland", "vkkhrdisplay", "linuxfb", "offscreens"})
    EXPECT_EQ(asked(unusable), "no display: QT_QPA_PLATFORM is \"" + std::string(unusable) +
                                   "\", and windows cannot be shown there");
  EXPECT_EQ(asked(""), "no display: windows cannot be shown here");
}

}  // namespace
