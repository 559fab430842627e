#include "platform/combo_box.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QTransform>
#include <QWheelEvent>
#include <utility>

#include "platform/choice_list.h"
#include "platform/form.h"
#include "platform/toolkit_peer.h"

namespace platform {
namespace {

QByteArray to_bytes(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

class drop_down : public QComboBox {
 public:
  drop_down() {
    // Some styles open a list as a menu, over the whole height of the screen and without scroll
    // bar.
    setStyleSheet("combobox-popup: 0");
    setView(list_);
    setMaxVisibleItems(20);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(20);
    share_choice();
  }

  void showPopup() override {
    choice_at_opening_ = currentIndex();
    QComboBox::showPopup();
  }

  /// Whether `index`, just chosen, is what had been chosen before the list was opened.
  bool was_chosen_again(int index) { return std::exchange(choice_at_opening_, -1) == index; }

 protected:
  // A wheel that passes over the closed list is meant for the window; a choice has consequences.
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

  // The toolkit sends the events of input methods here also while the list is open.
  void inputMethodEvent(QInputMethodEvent* event) override {
    if (list_->isVisible()) return list_->inputMethodEvent(event);
    composed_.show_composition(*event, rect());
    is_space_bar(*event) ? showPopup() : QComboBox::inputMethodEvent(event);
  }

  // While the list is open the toolkit takes what is answered here for a place in the list's
  // window, and yet tells the input method that it is one in this window.
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override {
    if (query != Qt::ImCursorRectangle || !list_->isVisible())
      return composed_.answer(query, rect());
    const QRect place = list_->inputMethodQuery(query).toRect();
    const QPoint here = window()->mapFromGlobal(list_->mapToGlobal(place.topLeft()));
    const QTransform taken = QGuiApplication::inputMethod()->inputItemTransform();
    return QRect(taken.inverted().map(here), place.size());
  }

 private:
  // A screen reader reads the choice off the entries of the closed list, and makes it there.
  void share_choice() {
    connect(this, &QComboBox::currentIndexChanged, this,
            [this](int index) { view()->setCurrentIndex(model()->index(index, 0)); });
    connect(view()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& on) {
              if (!view()->isVisible() && !on.isEmpty())
                setCurrentIndex(on.indexes().first().row());
            });
  }

  choice_list* const list_ = new choice_list;
  composition_label composed_{*this, *this};
  int choice_at_opening_ = -1;
};

}  // namespace

ComboBox::ComboBox(Form& form, std::string name) : Control(form, std::move(name)) {}

std::unique_ptr<toolkit_peer> ComboBox::make() {
  auto* combo = new drop_down;
  QObject::connect(combo, &QComboBox::currentIndexChanged, combo, [this](int index) {
    if (index >= 0 && on_click) form().guarded(on_click);
  });
  QObject::connect(combo, &QComboBox::activated, combo, [this, combo](int index) {
    if (combo->was_chosen_again(index) && on_click) form().guarded(on_click);
  });
  return std::make_unique<toolkit_peer>(combo);
}

void ComboBox::Clear() {
  as<QComboBox>(peer()).clear();
}

// The toolkit chooses the first item of a list by itself; a list here starts without a choice. Each
// item also holds its text as it came, which may have bytes that are shown otherwise.
void ComboBox::AddItem(std::string_view text) {
  auto& combo = as<QComboBox>(peer());
  const int chosen = combo.currentIndex();
  const bool was_blocked = combo.blockSignals(true);
  combo.addItem(to_toolkit(text), to_bytes(text));
  combo.setCurrentIndex(chosen);
  combo.blockSignals(was_blocked);
}

std::string ComboBox::text() {
  return as<QComboBox>(peer()).currentData().toByteArray().toStdString();
}

void ComboBox::select(std::string_view text) {
  auto& combo = as<QComboBox>(peer());
  combo.setCurrentIndex(combo.findData(to_bytes(text)));
}

}  // namespace platform
