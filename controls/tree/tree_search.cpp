#include "controls/tree/tree_search.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "platform/composition.h"
#include "platform/one_line_text.h"

namespace ta_vorlumine {
namespace {

constexpr char nothing_found[] = "見つかりません";

}  // namespace

class tree_search::line : public QLineEdit {
 public:
  explicit line(tree_search& search) : search_(search) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        return search_.step(!event->modifiers().testFlag(Qt::ShiftModifier));
      case Qt::Key_Down:
        return search_.step(true);
      case Qt::Key_Up:
        return search_.step(false);
      case Qt::Key_Escape:
        return search_.close_box();
      default:
        QLineEdit::keyPressEvent(event);
    }
  }
  // The box is part of the tree: the keyboard goes back there first.
  bool focusNextPrevChild(bool) override {
    search_.view_.setFocus();
    return true;
  }

 private:
  tree_search& search_;
};

tree_search::tree_search(const tree_nodes& nodes, QWidget& view)
    : QFrame(&view), nodes_(nodes), view_(view), line_(new line(*this)), found_(new QLabel) {
  setObjectName("search_box");
  setAutoFillBackground(true);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(4, 3, 4, 3);
  auto* caption = new QLabel("検索");
  line_->setObjectName("search");
  line_->setAccessibleName(caption->text());
  line_->setFocusPolicy(Qt::ClickFocus);
  // What is half composed would choose a node that the user has not seen.
  platform::drop_compositions(*line_);
  platform::drop_compositions(view);
  row->addWidget(caption);
  row->addWidget(line_, 1);
  found_->setMinimumWidth(found_->fontMetrics().horizontalAdvance(nothing_found));
  row->addWidget(found_);
  add_button("search_previous", "前へ (Shift+Enter)", Qt::UpArrow, [this] { step(false); });
  add_button("search_next", "次へ (Enter)", Qt::DownArrow, [this] { step(true); });
  add_button("search_close", "検索を閉じる (Esc)", Qt::NoArrow, [this] { close_box(); });
  line_->setValidator(new platform::one_line_text(line_));
  connect(line_, &QLineEdit::textChanged, this, [this] { look(); });
  hide();
}

void tree_search::add_button(const QString& name, const QString& hint, Qt::ArrowType arrow,
                             const std::function<void()>& press) {
  auto* button = new QToolButton;
  button->setObjectName(name);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  button->setArrowType(arrow);
  if (arrow == Qt::NoArrow) button->setText("×");
  button->setToolTip(hint);
  button->setAccessibleName(hint);
  connect(button, &QToolButton::clicked, this, press);
  layout()->addWidget(button);
}

void tree_search::open() {
  line_->selectAll();
  if (is_open()) return;
  show();
  on_shown();
}

void tree_search::close_box() {
  if (!is_open()) return;
  awaits_keys = false;
  const bool has_keyboard = line_->hasFocus();
  hide();
  forget_nodes();
  on_shown();
  if (has_keyboard) view_.setFocus();
}

void tree_search::type(const QString& text) {
  open();
  line_->setFocus();
  if (!text.isEmpty()) line_->insert(text);
}

void tree_search::forget_nodes() {
  texts_.reset();
  tell({});
}

void tree_search::compose(QInputMethodEvent& event) {
  composing_ = !event.preeditString().isEmpty();
  if (!awaits_keys) open();
  awaits_keys = true;
  line_->event(&event);
  const bool given_up = !composing_ && line_->text().isEmpty();
  if (given_up) close_box();
}

void tree_search::take_key(QKeyEvent& key) {
  if (composing_) return;
  line_->setFocus();
  QCoreApplication::sendEvent(line_, &key);
}

QVariant tree_search::answer(Qt::InputMethodQuery query) const {
  if (query != Qt::ImCursorRectangle) return line_->inputMethodQuery(query);
  return line_->inputMethodQuery(query).toRect().translated(line_->mapTo(&view_, QPoint()));
}

searched_texts& tree_search::texts() {
  if (!texts_) {
    texts_.emplace(nodes_);
    texts_->look_for(line_->text());
  }
  return *texts_;
}

void tree_search::look() {
  if (line_->text().isEmpty()) return tell({});
  texts().look_for(line_->text());
  if (texts().hits() > 0) return go_to(texts().next(current(), true));
  tell(nothing_found);
}

void tree_search::step(bool forward) {
  if (texts().hits() == 0) return look();
  go_to(forward ? texts().next(current(), false) : texts().previous(current()));
}

// The place among the hits is shown first: on_hit selects the node, which may load the tree anew,
// and these hits are gone then.
void tree_search::go_to(std::size_t number) {
  tell(QString("%1 / %2").arg(number + 1).arg(texts().hits()));
  on_hit(texts().hit(number));
}

void tree_search::tell(const QString& found) {
  found_->setText(found);
  line_->setAccessibleDescription(found);
}

}  // namespace ta_vorlumine
