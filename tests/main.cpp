#include <gtest/gtest.h>

#include <QApplication>

#include "random_walk.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (!arguments.empty() && arguments.front() == "--walk")
    return harness::walk_command({arguments.begin() + 1, arguments.end()});
  return RUN_ALL_TESTS();
}
