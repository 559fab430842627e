#pragma once

#include <vector>

namespace platform {

class Control;

/// How the controls of a form stand: rows and columns of controls, nested.
struct box {
  enum class kind { control, stretch, row, column, fields };

  box(Control& control) : what(kind::control), one(&control) {}  // NOLINT: reads like the window
  box(kind shape, std::vector<box> inside) : what(shape), parts(std::move(inside)) {}

  kind what;
  Control* one = nullptr;
  std::vector<box> parts;
};

inline box row(std::vector<box> parts) {
  return {box::kind::row, std::move(parts)};
}
inline box column(std::vector<box> parts) {
  return {box::kind::column, std::move(parts)};
}
inline box stretch() {
  return {box::kind::stretch, {}};
}

/// Rows whose first parts stand in one column, as wide as the widest of them.
inline box fields(std::vector<box> rows) {
  return {box::kind::fields, std::move(rows)};
}

}  // namespace platform
