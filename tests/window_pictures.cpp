#include "window_pictures.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>
#include <functional>

#include "test_store.h"
#include "user.h"

namespace harness {
namespace {

QPalette dark_palette() {
  QPalette palette(QColor(45, 45, 45));
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  for (const auto text : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
    palette.setColor(QPalette::Disabled, text, QColor(130, 130, 130));
  return palette;
}

void draw_browser(const std::function<void(const char*)>& draw) {
  click_node("季節の挨拶");
  press("updatef");
  draw("folder");
  key(Qt::Key_Escape);
  click_node("敬称");
  draw("browser");
  press("del");
  draw("question");
  key(Qt::Key_Escape);
}

void draw_editor(const std::function<void(const char*)>& draw) {
  click_node("敬称");
  press("update");
  click_node("置換条件");
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  draw("editor");
  press("cond_set");
  draw("condition");
  key(Qt::Key_Escape);
  click_node("御中");
  press("cond_val_set");
  draw("value");
  key(Qt::Key_Escape);
}

}  // namespace

int pictures_command(const std::vector<std::string>& arguments) {
  QApplication::setStyle("Fusion");
  if (arguments.back() == "--dark") QApplication::setPalette(dark_palette());
  test_store store;
  store.load_sample();
  int missing = 0;
  const auto draw = [&](const char* name) {
    QApplication::processEvents();
    const QString file = QString::fromStdString(arguments.at(0) + "/" + name + ".png");
    missing += top_window().grab().save(file) ? 0 : 1;
  };
  browse(store, [&] {
    draw_browser(draw);
    draw_editor(draw);
  });
  return missing;
}

}  // namespace harness
