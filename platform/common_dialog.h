#pragma once

#include <string>

namespace platform {

/// The file-open dialog. It opens no file: it only tells which path was chosen.
class CommonDialog {
 public:
  explicit CommonDialog(std::string title) : title_(std::move(title)) {}

  /// Label and pattern pairs, all separated by "|"; several patterns of one label by ";".
  std::string Filter;

  /// Runs the dialog over the form that runs. The path as chosen (UTF-8), empty on Cancel.
  [[nodiscard]] std::string ShowOpen() const;

 private:
  std::string title_;
};

}  // namespace platform
