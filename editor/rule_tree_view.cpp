#include <vector>

#include "browser/replace_form.h"
#include "controls/tree/tree_look.h"
#include "editor/condition_text.h"
#include "editor/replace_create.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

std::string text_of(const ADODB::Recordset& row, std::string_view column) {
  return row.Fields().Item(column).Value().text();
}

std::string field_text(const std::string& field_id) {
  auto& rows = form<replaceForm>().basRS;
  rows = form<replaceForm>().conn.Execute(
      sql("select field_name from field where field_id='<field_id>'", {field_id}));
  return rows.eof() ? field_id : rows.Fields().Item(0).Value().text();
}

}  // namespace

void replace_create::init_tree() {
  auto& shared = form<replaceForm>();
  shared.basNodeKey = "0";
  // Read before the tree is emptied: a store that is out of reach leaves it as it was.
  shared.basCopyRs =
      shared.conn.Execute(sql("select * from replace_m where replace_no=<f_replace_no> "
                              "ORDER BY P_REPLACE_M_NO,replace_cond_type,replace_m_no",
                              {shared.f_replace_no}));
  const tree_filling filling(SSTree1, ImageList1, "置換条件");
  shared.atNode = filling.root();
  add_rule_nodes();
}

// Every row that this editor writes comes after its parent. What other programs wrote may not: such
// rows wait until a parent has come, and those that no parent comes for are left out.
void replace_create::add_rule_nodes() {
  auto& cursor = form<replaceForm>().basCopyRs;
  std::vector<ADODB::Recordset> waiting;
  for (; !cursor.eof(); cursor.MoveNext()) {
    if (SSTree1.Nodes.Has(text_of(cursor, "p_replace_m_no"))) {
      initone();
    } else {
      waiting.push_back(cursor);
    }
  }
  const ADODB::Recordset end = cursor;
  for (std::size_t before = 0; before != waiting.size();) {
    before = waiting.size();
    std::erase_if(waiting, [&](const ADODB::Recordset& row) {
      const bool has_parent = SSTree1.Nodes.Has(text_of(row, "p_replace_m_no"));
      if (has_parent) {
        cursor = row;
        initone();
      }
      return has_parent;
    });
  }
  cursor = end;
}

void replace_create::initone() {
  auto& shared = form<replaceForm>();
  const ADODB::Recordset& row = shared.basCopyRs;
  const std::string use_type = text_of(row, "use_type");
  const std::string parent = text_of(row, "p_replace_m_no");
  const std::string key = text_of(row, "replace_m_no");
  if (use_type == "F") {
    shared.atNode = SSTree1.Nodes.AddChild(parent, key, field_text(text_of(row, "field_id")));
    shared.atNode.Image("close");
    shared.atNode.ExpandedImage("open");
  } else if (use_type == "C") {
    shared.atNode = SSTree1.Nodes.AddChild(parent, key, condition_text(row));
    shared.atNode.Image("cond");
  } else if (use_type == "R") {
    shared.atNode = SSTree1.Nodes.AddChild(parent, key, text_of(row, "replace_title"));
    shared.atNode.Image("val");
  } else {
    return;
  }
  shared.atNode.parent().Expanded(true);
  show_as_row(shared.atNode);
}

}  // namespace ta_vorlumine
