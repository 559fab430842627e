#include "platform/text_box.h"

#include <QLineEdit>
#include <limits>
#include <utility>

#include "platform/composition.h"
#include "platform/form.h"
#include "platform/one_line_text.h"
#include "platform/text_area.h"
#include "platform/toolkit_peer.h"

namespace platform {

TextBox::TextBox(Form& form, std::string name, lines box_lines)
    : Control(form, std::move(name)), lines_(box_lines) {}

std::unique_ptr<toolkit_peer> TextBox::make() {
  given_.clear();
  if (lines_ == lines::several) {
    auto* edit = new text_area;
    QObject::connect(edit, &text_area::textChanged, edit, [this] { changed(); });
    return std::make_unique<toolkit_peer>(edit);
  }
  auto* edit = new QLineEdit;
  edit->setMaxLength(std::numeric_limits<int>::max());
  if (lines_ == lines::one_tall) edit->setMinimumHeight(2 * edit->sizeHint().height());
  edit->setValidator(new one_line_text(edit));
  QObject::connect(edit, &QLineEdit::textChanged, edit, [this] { changed(); });
  return std::make_unique<toolkit_peer>(edit);
}

void TextBox::changed() {
  if (on_change) form().guarded(on_change);
}

std::string TextBox::text() {
  finish_composition();
  const QString shown =
      lines_ == lines::several ? as<text_area>(peer()).text() : as<QLineEdit>(peer()).text();
  return shown == to_toolkit(given_) ? given_ : from_toolkit(shown);
}

bool TextBox::is_empty() {
  return lines_ == lines::several ? as<text_area>(peer()).is_empty()
                                  : as<QLineEdit>(peer()).text().isEmpty();
}

void TextBox::set_text(std::string_view text) {
  given_ = text;
  const QString wanted = to_toolkit(text);
  if (lines_ != lines::several) return set_line(wanted);
  auto& edit = as<text_area>(peer());
  if (edit.text() != wanted) edit.set_text(wanted);
}

// What another program has stored is shown as it is, line breaks and all, until the user types.
void TextBox::set_line(const QString& text) {
  auto& edit = as<QLineEdit>(peer());
  const QValidator* const one_line = edit.validator();
  edit.setValidator(nullptr);
  edit.setText(text);
  edit.setValidator(one_line);
}

}  // namespace platform
