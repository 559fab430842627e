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

std::string field_text(const std::string& field_id) {
  auto& rows = shared().basRS;
  rows = shared().conn.Execute(
      sql("select field_name from field where field_id='<field_id>'", {field_id}));
  return rows.eof() ? field_id : rows.Fields().Item(0).Value().text();
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
  const tree_filling filling(SSTree1, ImageList1, "置換条件");
  state.atNode = filling.root();
  add_rule_nodes();
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
  const std::string key = text_of(row, "replace_m_no");
  if (use_type == "F") {
    state.atNode = SSTree1.Nodes.AddChild(parent, key, field_text(text_of(row, "field_id")));
    state.atNode.Image("close");
    state.atNode.ExpandedImage("open");
  } else if (use_type == "C") {
    state.atNode = SSTree1.Nodes.AddChild(parent, key, condition_text(row));
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
