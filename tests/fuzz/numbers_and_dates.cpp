#include <QString>
#include <cmath>
#include <cstdlib>
#include <string>
#include <string_view>

#include "conditions/date_text.h"
#include "conditions/full_width_input.h"
#include "store/decimal_form.h"
#include "store/text.h"
#include "store/text_values.h"

namespace {

void expect(bool holds) {
  if (!holds) std::abort();
}

void try_number(std::string_view text) {
  const auto number = ADODB::read_number(text);
  if (ADODB::is_kept_exactly(text)) {
    expect(number && std::isfinite(*number));
    std::string_view digits = ADODB::trimmed(text);
    if (digits.starts_with('+')) digits.remove_prefix(1);
    const auto form = ADODB::decimal_form_of(digits);
    expect(ADODB::is_kept_exactly(text_of(form)));
    expect(ADODB::decimal_form_of(text_of(form)) == form);
  }
  if (!number || !std::isfinite(*number)) return;
  expect(ADODB::read_number(text_of(ADODB::decimal_form_of(*number))) == *number);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  // What a cell gives is UTF-8, whatever was put into it.
  const std::string text = QString::fromUtf8(data, static_cast<qsizetype>(size)).toStdString();
  try_number(text);
  static_cast<void>(ADODB::read_whole_number(text));
  const std::string plain = ta_vorlumine::plain_number(text);
  expect(ta_vorlumine::plain_number(plain) == plain);
  try_number(plain);

  const std::string date = ta_vorlumine::plain_date(text, '/');
  expect(ta_vorlumine::plain_date(date, '/') == date);
  if (const auto day = ADODB::read_date(date)) {
    expect(ADODB::character_count(date) == 10);
    expect(ADODB::read_date(ta_vorlumine::write_date(*day, '/')) == day);
  }
  return 0;
}
