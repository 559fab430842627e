#pragma once

#include <string>

class QWidget;

namespace harness {

/// What is wrong with a window that waits for its user, whichever it is: the keyboard is nowhere,
/// the pointer is busy, Tab goes to and fro, a control has no name for a screen reader, is cut, or
/// lies over another.
/// Empty if nothing is. From the first look on its trees and lists are checked by the toolkit's
/// model tester.
[[nodiscard]] std::string fault_of_window(const QWidget& window);

}  // namespace harness
