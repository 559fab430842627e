// Draws the windows over the sample store into PNG files: vorlumine_pictures FOLDER [--dark]

#include <QApplication>
#include <QPalette>
#include <QWidget>
#include <cstdio>
#include <string>

#include "tests/test_store.h"
#include "tests/user.h"

namespace {

using namespace harness;

QPalette dark_palette() {
  QPalette palette(QColor(45, 45, 45));
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  for (const auto text : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
    palette.setColor(QPalette::Disabled, text, QColor(130, 130, 130));
  }
  return palette;
}

class album {
 public:
  explicit album(std::string folder) : folder_(std::move(folder)) {}
  [[nodiscard]] bool complete() const { return complete_; }

  void take(const std::string& name) {
    QApplication::processEvents();
    const std::string file = folder_ + "/" + name + ".png";
    complete_ = top_window().grab().save(QString::fromStdString(file)) && complete_;
  }

 private:
  std::string folder_;
  bool complete_ = true;
};

void take_browser(album& album) {
  click_node("季節の挨拶");
  press("updatef");
  album.take("folder");
  key(Qt::Key_Escape);
  click_node("敬称");
  album.take("browser");
  press("del");
  album.take("question");
  key(Qt::Key_Escape);
}

void take_editor(album& album) {
  click_node("敬称");
  press("update");
  click_node("置換条件");
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  album.take("editor");
  press("cond_set");
  album.take("condition");
  key(Qt::Key_Escape);
  click_node("御中");
  press("cond_val_set");
  album.take("value");
  key(Qt::Key_Escape);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const bool dark = argc == 3 && std::string(argv[2]) == "--dark";
  if (argc != 2 && !dark) {
    std::fputs("usage: vorlumine_pictures FOLDER [--dark]\n", stderr);
    return 2;
  }
  QApplication::setStyle("Fusion");
  if (dark) QApplication::setPalette(dark_palette());
  test_store store;
  store.load_sample();
  album album(argv[1]);
  browse(store, [&] {
    take_browser(album);
    take_editor(album);
  });
  return album.complete() ? 0 : 1;
}
