#include "rules/subtree.h"

#include <utility>

namespace ta_vorlumine {

subtree::subtree(ADODB::Connection& conn, row_key top, std::string key,
                 const std::function<ADODB::statement(row_key)>& children_of)
    : top_(top), key_(std::move(key)) {
  for (std::vector<row_key> level{top}; !level.empty();) {
    std::vector<ADODB::statement> look_ups;
    look_ups.reserve(level.size());
    for (const row_key row : level) look_ups.push_back(children_of(row));
    std::vector<row_key> next;
    auto parent = level.begin();
    conn.ExecuteAll(look_ups, [&](const ADODB::Recordset& rows) {
      for (ADODB::Recordset row = rows; !row.eof(); row.MoveNext()) next.push_back(key_of(row));
      children_.emplace(*parent++, rows);
    });
    // Rows that another program has hung below each other would come again and again.
    std::erase_if(next, [this](row_key row) { return children_.contains(row); });
    level = std::move(next);
  }
}

// Keeps its way down in a vector instead of calling itself: a tree may be deeper than the stack
// allows.
void subtree::walk(const std::function<void(const ADODB::Fields&)>& first,
                   const std::function<void(row_key)>& last) {
  for (std::vector<row_key> way{top_}; !way.empty();) {
    ADODB::Recordset& rest = children_[way.back()];
    if (rest.eof()) {
      last(way.back());
      way.pop_back();
    } else {
      first(rest.Fields());
      way.push_back(key_of(rest));
      rest.MoveNext();
    }
  }
}

row_key subtree::key_of(const ADODB::Recordset& row) const {
  return row.Fields().Item(key_).Value().number();
}

}  // namespace ta_vorlumine
