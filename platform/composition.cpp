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

  void finish(bool window_is_left = false);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  /// A composition that is no longer shown is `withdrawn`: the user has pressed Esc, or another
  /// program's window has taken the focus, of which this program learns only afterwards. If a key
  /// follows, it was the user, who has `given_up` the text. There are input methods that keep the
  /// text in both cases and send it when they are asked to commit.
  enum class state { none, shown, withdrawn, given_up };

  bool is_dropped(QObject& receiver, const QInputMethodEvent& event);

  state state_ = state::none;
  QPointer<QObject> control_;
  QString half_composed_;
  QString last_;                       // the text of the last composition, in case it is sent again
  const QEvent* finishing_ = nullptr;  // the event that ends a composition, while it is ended
};

void composition_watch::finish(bool window_is_left) {
  const state before = std::exchange(state_, state::none);
  if (before == state::none) return;
  const bool kept = before == state::shown || (before == state::withdrawn && window_is_left);
  QInputMethodEvent end;
  last_ = half_composed_;
  finishing_ = &end;
  if (kept && control_) {
    if (!control_->property(drops_property).toBool()) end.setCommitString(last_);
    QCoreApplication::sendEvent(control_, &end);
  }
  QGuiApplication::inputMethod()->reset();
  finishing_ = nullptr;
}

bool composition_watch::eventFilter(QObject* receiver, QEvent* event) {
  const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (key && state_ == state::withdrawn) state_ = state::given_up;
  if (leaves_control(*event)) {
    finish(event->type() == QEvent::FocusAboutToChange && receiver->isWindowType());
  }
  return event->type() == QEvent::InputMethod &&
         is_dropped(*receiver, *static_cast<QInputMethodEvent*>(event));
}

bool composition_watch::is_dropped(QObject& receiver, const QInputMethodEvent& event) {
  if (finishing_) return &event != finishing_;
  const QString& committed = event.commitString();
  if (!event.preeditString().isEmpty()) {
    state_ = state::shown;
    control_ = &receiver;
    half_composed_ = event.preeditString();
    last_.clear();
  } else if (committed.isEmpty()) {
    if (state_ == state::shown) state_ = state::withdrawn;
  } else {
    if (committed == last_) return true;
    last_ = state_ == state::shown ? committed : QString();
    state_ = state::none;
  }
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
