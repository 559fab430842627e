#pragma once

#include <QElapsedTimer>
#include <QString>
#include <functional>

namespace platform {

/// Search by typing: finds an entry of a list by what is typed, letter after letter or as an input
/// method hands it over. An entry that begins with it goes before one that holds it. Wide and
/// narrow letters are the same, and so are capitals and small letters, hiragana and katakana.
class typed_search {
 public:
  /// Finds by `typed` behind what was typed just before, from the entry `current` (-1 for none) on
  /// and around. Entries count from 0; -1 if none fits.
  [[nodiscard]] int find(const QString& typed, int current, int count,
                         const std::function<QString(int)>& text_of);

 private:
  QString typed_;
  QElapsedTimer since_last_;
};

}  // namespace platform
