#include <optional>
#include <utility>
#include <vector>

#include "controls/tree/tree_filling.h"
#include "editor/condition_text.h"
#include "editor/replace_create.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

std::string text_of(const ADODB::Recordset& row, std::string_view column) {
  return row.Fields().Item(column).Value().text();
}

/// Whether the row is an otherwise branch with a condition behind it. Other programs may leave an
/// ordinary condition without a type, and some engines sort null behind everything.
bool is_otherwise_too_early(ADODB::Recordset row) {
  if (text_of(row, "replace_cond_type") != "1") return false;
  const std::string field = text_of(row, "p_replace_m_no");
  row.MoveNext();
  return !row.eof() && text_of(row, "p_replace_m_no") == field;
}

// As a text: other programs may have left no number there.
std::string key_of(const ADODB::Recordset& row) {
  return text_of(row, "replace_m_no");
}

/// What a row's node shows that stands in another table; nothing for most.
std::optional<ADODB::statement> look_up_of(const ADODB::Recordset& row) {
  const std::string use_type = text_of(row, "use_type");
  if (use_type == "C") return select_of_lines(row);
  if (use_type != "F") return {};
  return sql("select field_name from field where field_id='<field_id>'",
             {text_of(row, "field_id")});
}

}  // namespace

void replace_create::init_tree() {
  auto& state = shared();
  state.basNodeKey = "0";
  // Read before the tree is emptied: a store that is out of reach leaves it as it was.
  state.basCopyRs =
      state.conn.Execute(sql("select * from replace_m where replace_no=<f_replace_no> "
                             "ORDER BY P_REPLACE_M_NO,replace_cond_type,replace_m_no",
                             {state.f_replace_no}));
  look_up_all(state.basCopyRs);
  const tree_filling filling(SSTree1, ImageList1, "置換条件");
  state.atNode = filling.root();
  add_rule_nodes();
  looked_up_.clear();
}

void replace_create::look_up_all(ADODB::Recordset rows) {
  std::vector<ADODB::statement> look_ups;
  std::vector<std::string> keys;
  for (; !rows.eof(); rows.MoveNext()) {
    auto look_up = look_up_of(rows);
    if (!look_up) continue;
    look_ups.push_back(std::move(*look_up));
    keys.push_back(key_of(rows));
  }
  looked_up_.clear();
  auto key = keys.begin();
  shared().conn.ExecuteAll(look_ups,
                           [&](ADODB::Recordset found) { looked_up_[*key++] = std::move(found); });
}

/// Into shared().basRS, which is empty for a row that needs none.
void replace_create::look_up(const ADODB::Recordset& row) {
  auto& found = shared().basRS;
  found.Close();
  if (const auto known = looked_up_.find(key_of(row)); known != looked_up_.end()) {
    found = known->second;
  } else if (const auto wanted = look_up_of(row)) {
    found = shared().conn.Execute(*wanted);
  }
}

// Every row that this editor writes comes after its parent, and the otherwise branch last. What
// other programs wrote may not: such rows wait until the others are there, and those that no parent
// comes for are left out.
void replace_create::add_rule_nodes() {
  auto& rows = shared().basCopyRs;
  std::vector<ADODB::Recordset> waiting;
  const auto has_parent = [this](const ADODB::Recordset& row) {
    return SSTree1.Nodes.Has(text_of(row, "p_replace_m_no"));
  };
  for (; !rows.eof(); rows.MoveNext()) {
    if (has_parent(rows) && !is_otherwise_too_early(rows)) {
      initone();
    } else {
      waiting.push_back(rows);
    }
  }
  for (std::size_t before = 0; before != waiting.size();) {
    before = waiting.size();
    std::erase_if(waiting, [&](const ADODB::Recordset& row) {
      const bool ready = has_parent(row);
      if (ready) add_rule_node(row);
      return ready;
    });
  }
}

void replace_create::initone() {
  add_rule_node(shared().basCopyRs);
}

void replace_create::add_rule_node(const ADODB::Recordset& row) {
  auto& state = shared();
  const std::string use_type = text_of(row, "use_type");
  const std::string parent = text_of(row, "p_replace_m_no");
  const std::string key = key_of(row);
  look_up(row);
  if (use_type == "F") {
    const std::string field =
        state.basRS.eof() ? text_of(row, "field_id") : state.basRS.Fields().Item(0).Value().text();
    state.atNode = SSTree1.Nodes.AddChild(parent, key, field);
    state.atNode.Image("close");
    state.atNode.ExpandedImage("open");
  } else if (use_type == "C") {
    state.atNode = SSTree1.Nodes.AddChild(parent, key, condition_text(row, state.basRS));
    state.atNode.Image("cond");
  } else if (use_type == "R") {
    state.atNode = SSTree1.Nodes.AddChild(parent, key, text_of(row, "replace_title"));
    state.atNode.Image("val");
  } else {
    return;
  }
  state.atNode.parent().Expanded(true);
  show_as_row(state.atNode);
}

}  // namespace ta_vorlumine
