#include "platform/composition.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QPointer>
#include <QWidget>
#include <utility>

namespace platform {
namespace {

constexpr char drops_property[] = "drops_compositions";

bool leaves_control(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::FocusAboutToChange:
    case QEvent::Shortcut:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

}  // namespace

/// Input methods differ in what they do when they are asked to commit a composition, or when the
/// focus leaves it: some send the text at once, some later, some both, some never. So the text that
/// was last shown is put into the control here, then the input method is told to forget it, and
/// when it sends that text once more the event is dropped.
class composition_watch : public QObject {
 public:
  composition_watch() { qApp->installEventFilter(this); }

  void finish();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  bool is_dropped(QObject& receiver, const QInputMethodEvent& event);

  QPointer<QObject> control_;  // the one being composed in, null if none is
  QString half_composed_;
  QString last_;           // the text of the last composition, in case it is sent again
  bool given_up_ = false;  // its text may still be sent when the input method is asked to commit
  const QEvent* finishing_ = nullptr;  // the event that ends a composition, while it is ended
};

void composition_watch::finish() {
  if (!control_ && !given_up_) return;
  QInputMethodEvent end;
  finishing_ = &end;
  given_up_ = false;
  last_ = half_composed_;
  if (const QPointer<QObject> control = std::exchange(control_, nullptr)) {
    if (!control->property(drops_property).toBool()) end.setCommitString(last_);
    QCoreApplication::sendEvent(control, &end);
  }
  QGuiApplication::inputMethod()->reset();
  finishing_ = nullptr;
}

bool composition_watch::eventFilter(QObject* receiver, QEvent* event) {
  if (leaves_control(*event)) finish();
  return event->type() == QEvent::InputMethod &&
         is_dropped(*receiver, *static_cast<QInputMethodEvent*>(event));
}

bool composition_watch::is_dropped(QObject& receiver, const QInputMethodEvent& event) {
  if (finishing_) return &event != finishing_;
  const QString& committed = event.commitString();
  const bool composing = !event.preeditString().isEmpty();
  if (!composing && !committed.isEmpty()) {
    if (committed == last_) return true;
    last_ = control_ ? committed : QString();
  }
  if (composing) {
    half_composed_ = event.preeditString();
    last_.clear();
  }
  given_up_ = !composing && committed.isEmpty() && (control_ || given_up_);
  control_ = composing ? &receiver : nullptr;
  return false;
}

namespace {

std::weak_ptr<composition_watch>& watch() {
  static std::weak_ptr<composition_watch> shared;
  return shared;
}

}  // namespace

std::shared_ptr<composition_watch> watch_compositions() {
  auto shared = watch().lock();
  if (!shared) watch() = shared = std::make_shared<composition_watch>();
  return shared;
}

void finish_composition() {
  if (const auto shared = watch().lock()) shared->finish();
}

void drop_compositions(QWidget& control) {
  control.setProperty(drops_property, true);
}

}  // namespace platform
