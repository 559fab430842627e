#include <gtest/gtest.h>

#include <QApplication>

#include "docs/window_pictures.h"
#include "lasting_user.h"
#include "paired_user.h"
#include "random_walk.h"
#include "user.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  harness::let_drags_run();
  const std::string command = argc > 1 ? argv[1] : "";
  if (command == "--walk") return harness::walk_command({argv + 2, argv + argc});
  if (command == "--pictures") return harness::pictures_command({argv + 2, argv + argc});
  if (command == "--work") return harness::work_command({argv + 2, argv + argc});
  if (command == "--do") return harness::do_command({argv + 2, argv + argc});
  return RUN_ALL_TESTS();
}
