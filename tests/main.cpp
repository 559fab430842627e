#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>

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
  if (argc > 3 && argv[3] == std::string("--dark")) {
    QPalette dark(QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    for (const auto text : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
      dark.setColor(QPalette::Disabled, text, QColor(130, 130, 130));
    QApplication::setPalette(dark);
  }
  if (command == "--walk") return harness::walk_command({argv + 2, argv + argc});
  if (command == "--pictures") return harness::pictures_command({argv + 2, argv + argc});
  if (command == "--work") return harness::work_command({argv + 2, argv + argc});
  if (command == "--do") return harness::do_command({argv + 2, argv + argc});
  return RUN_ALL_TESTS();
}
