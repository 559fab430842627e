#pragma once

#include <QString>
#include <cstddef>
#include <vector>

#include "controls/tree/tree_nodes.h"

namespace ta_vorlumine {

/// The nodes of a tree whose text holds what is searched for, from the top, each before those below
/// it. The texts are made ready to be compared once, since many thousands of them are gone through
/// at each key. Outdated by any change of the nodes.
class searched_texts {
 public:
  explicit searched_texts(const tree_nodes& nodes);

  /// Nothing is found for an empty text.
  void look_for(const QString& text);

  [[nodiscard]] std::size_t hits() const { return hits_.size(); }
  /// Hits count from 0; there must be one.
  [[nodiscard]] const tree_node& hit(std::size_t number) const {
    return *rows_[hits_[number]].node;
  }
  /// The number of the first hit behind `node`, or at it if it `may_stay`, and around; the first of
  /// all if the node is null. There must be a hit.
  [[nodiscard]] std::size_t next(const tree_node* node, bool may_stay) const;
  /// The same backwards, never at `node`.
  [[nodiscard]] std::size_t previous(const tree_node* node) const;

 private:
  struct row {
    const tree_node* node;
    QString text;
  };
  [[nodiscard]] std::size_t place_of(const tree_node* node) const;

  std::vector<row> rows_;
  std::vector<std::size_t> hits_;  // places in rows_, rising
};

}  // namespace ta_vorlumine
