#include "browser/title_rows.h"

#include <cstddef>
#include <utility>

#include "controls/tree/ss_tree.h"
#include "rules/failure_words.h"
#include "rules/shared_state.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

ADODB::statement children_of(row_key parent) {
  return sql("SELECT * FROM REPLACE WHERE P_REPLACE_NO = <p_val> ORDER BY REPLACE_NO", {parent});
}

ADODB::statement values_of(row_key definition) {
  return sql(
      "select replace_type,r_field_id,r_text,r_text_filename,r_image_filename,r_mmedia_filename"
      " from replace_m where use_type='R' and replace_no=<replace_no>",
      {definition});
}

// A definition without values counts as one whose values are all images.
const char* picture_for(ADODB::Recordset values) {
  std::size_t images = 0;
  std::size_t multimedia = 0;
  std::size_t texts = 0;
  const std::size_t all = values.RecordCount();
  for (; !values.eof(); values.MoveNext()) {
    const std::string type = values.Fields().Item("replace_type").Value().text();
    images += type == "I" ? 1 : 0;
    multimedia += type == "M" ? 1 : 0;
    texts += type == "S" || type == "T" || type == "F" ? 1 : 0;
  }
  if (images == all) return "cond2";
  if (multimedia == all) return "cond3";
  if (texts == all) return "cond1";
  return "cond";
}

bool ends_reading(const ADODB::Error& failure) {
  return failure.kind() == ADODB::failure_kind::lost_connection ||
         failure.kind() == ADODB::failure_kind::busy;
}

}  // namespace

title_rows::title_rows(ADODB::Connection& conn) : level_{{subject::children, 0, 0}} {
  int levels = 0;
  while (!level_.empty() && ended_by_.empty()) {
    read_level(conn);
    if (!level_.empty()) continue;
    level_ = std::exchange(next_level_, {});
    if (!level_.empty() && ++levels == SSTree::most_levels)
      ended_by_ = "フォルダの階層が深すぎるため、" + std::to_string(SSTree::most_levels) +
                  "階層より下は表示されません。";
  }
}

void title_rows::read_level(ADODB::Connection& conn) {
  std::vector<ADODB::statement> statements;
  statements.reserve(level_.size());
  for (const look_up& wanted : level_) {
    statements.push_back(wanted.about == subject::values ? values_of(wanted.row)
                                                         : children_of(wanted.row));
  }
  auto asked = level_.begin();
  try {
    conn.ExecuteAll(statements, [&](const ADODB::Recordset& rows) {
      take(*asked, rows);
      ++asked;
    });
    level_.clear();
  } catch (const ADODB::Error& failure) {
    if (ends_reading(failure)) {
      ended_by_ = words_for(failure);
      return;
    }
    const look_up refused = *asked;
    level_.erase(level_.begin(), asked + 1);
    refuse(refused);
  }
}

void title_rows::take(const look_up& asked, const ADODB::Recordset& rows) {
  findings& known = found_[asked.row];
  if (asked.about == subject::values) {
    shared().basCopyRs = rows;
    known.picture = picture_for(shared().basCopyRs);
  } else if (!rows.eof()) {
    known.children = rows;
    add_look_ups(rows, asked.row);
  }
}

// A definition has no children, which only the store says: it may hold other programs' rows.
void title_rows::add_look_ups(ADODB::Recordset rows, row_key parent) {
  for (; !rows.eof(); rows.MoveNext()) {
    const row_key row = rows.Fields().Item("replace_no").Value().number();
    if (found_.contains(row)) continue;
    if (rows.Fields().Item("kind").Value().text() == "C") {
      next_level_.push_back({subject::values, row, parent});
    }
    next_level_.push_back({subject::children, row, parent});
  }
}

/// A definition without a picture is the last row of its parent that is shown: nothing needs to be
/// asked about those behind it.
void title_rows::refuse(const look_up& asked) {
  findings& known = found_[asked.row];
  known.refused = asked.about;
  known.refusal = std::current_exception();
  if (asked.about == subject::children) return;
  std::erase_if(level_, [&](const look_up& one) { return one.parent == asked.parent; });
}

const title_rows::findings* title_rows::found_for(row_key row, subject about) const {
  const auto found = found_.find(row);
  if (found == found_.end()) return nullptr;
  if (found->second.refusal && found->second.refused == about)
    std::rethrow_exception(found->second.refusal);
  return &found->second;
}

ADODB::Recordset title_rows::children(row_key parent) const {
  const findings* found = found_for(parent, subject::children);
  return found ? found->children : ADODB::Recordset();
}

std::string title_rows::picture(row_key definition) const {
  const findings* found = found_for(definition, subject::values);
  return found ? found->picture : "";
}

}  // namespace ta_vorlumine
