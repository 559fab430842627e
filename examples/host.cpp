// A small host program: shows the title browser over the store that its argument names.

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>

#include "ta_vorlumine/replace_class.h"

namespace {

/// Draws the first window that comes up into a file and closes it.
class photographer : public QObject {
 public:
  explicit photographer(QString file) : file_(std::move(file)) {}
  [[nodiscard]] bool saved() const { return saved_; }

  bool eventFilter(QObject* object, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(object);
    if (event->type() == QEvent::Show && widget && widget->isWindow()) {
      QTimer::singleShot(0, widget, [this, widget] {
        saved_ = widget->grab().save(file_);
        widget->close();
      });
    }
    return false;
  }

 private:
  QString file_;
  bool saved_ = false;
};

int usage() {
  std::fputs("usage: vorlumine_host CONNECT_STRING [--picture FILE]\n", stderr);
  return 2;
}

int draw(ta_vorlumine::replaceClass& editor, int argc, char** argv) {
  QApplication application(argc, argv);
  photographer watching(QString::fromLocal8Bit(argv[3]));
  application.installEventFilter(&watching);
  editor.replace_show();
  if (watching.saved()) return 0;
  std::fprintf(stderr, "could not write %s\n", argv[3]);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const bool picture = argc == 4 && std::string(argv[2]) == "--picture";
  if (argc != 2 && !picture) return usage();
  try {
    ta_vorlumine::replaceClass editor;
    editor.CONNECT_STRING = argv[1];
    if (picture) return draw(editor, argc, argv);
    editor.replace_show();
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
