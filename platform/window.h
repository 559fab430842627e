#pragma once

#include <QDialog>
#include <QEvent>
#include <memory>

#include "platform/composition.h"

namespace platform {

class Form;

/// The toolkit's window of a form: hands keys and closing to the form.
class window : public QDialog {
 public:
  window(Form& form, QWidget* owner);
  ~window() override;

  void reject() override;

  /// What the screen has room for, the frame and its caption left aside.
  [[nodiscard]] QSize room_on_screen() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  Form& form_;
  std::shared_ptr<composition_watch> compositions_ = watch_compositions();
};

}  // namespace platform
