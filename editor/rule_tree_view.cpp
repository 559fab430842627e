#include <map>
#include <optional>
#include <queue>
#include <unordered_map>
#include <utility>
#include <vector>

#include "controls/tree/tree_filling.h"
#include "editor/condition_text.h"
#include "editor/replace_create.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "rules/record_values.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

std::string text_of(const ADODB::Recordset& row, std::string_view name) {
  return column(row, name).text();
}

/// Whether the row is an otherwise branch with a condition of the same field behind it. Other
/// programs may leave an ordinary condition without a type, and some engines sort null behind
/// everything.
bool is_otherwise_too_early(const ADODB::Recordset& row, const std::string& field) {
  if (text_of(row, "replace_cond_type") != "1") return false;
  ADODB::Recordset next = row;
  next.MoveNext();
  return !next.eof() && text_of(next, "p_replace_m_no") == field;
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
  const platform::busy_pointer busy;
  // Read before the tree is emptied: a store that is out of reach leaves it as it was.
  state.basCopyRs =
      state.conn.Execute(sql("select * from replace_m where replace_no=<f_replace_no> "
                             "ORDER BY P_REPLACE_M_NO,replace_cond_type,replace_m_no",
                             {state.f_replace_no}));
  look_up_all(state.basCopyRs);
  const bool is_whole = fill_tree();
  looked_up_.clear();
  if (is_whole) return;
  platform::message("分岐の階層が深すぎるため、" + std::to_string(SSTree::most_levels) +
                    "階層より下は表示されません。");
}

bool replace_create::fill_tree() {
  const tree_filling filling(SSTree1, ImageList1, "置換条件");
  shared().atNode = filling.root();
  return add_rule_nodes();
}

void replace_create::look_up_all(ADODB::Recordset rows) {
  std::vector<ADODB::statement> look_ups;
  std::vector<std::size_t> records;
  looked_up_.assign(rows.RecordCount(), {});
  for (; !rows.eof(); rows.MoveNext()) {
    auto look_up = look_up_of(rows);
    if (!look_up) continue;
    look_ups.push_back(std::move(*look_up));
    records.push_back(rows.Record());
  }
  auto record = records.begin();
  shared().conn.ExecuteAll(
      look_ups, [&](ADODB::Recordset found) { looked_up_[*record++] = std::move(found); });
}

/// Into shared().basRS, which is empty for a row that needs none.
void replace_create::look_up(const ADODB::Recordset& row) {
  auto& found = shared().basRS;
  found.Close();
  if (row.Record() < looked_up_.size()) {
    found = looked_up_[row.Record()];
  } else if (const auto wanted = look_up_of(row)) {
    found = shared().conn.Execute(*wanted);
  }
}

// Every row that this editor writes comes after its parent, and the otherwise branch last. What
// other programs wrote may not: such rows wait until the others are there, and those that no parent
// comes for are left out.
bool replace_create::add_rule_nodes() {
  auto& rows = shared().basCopyRs;
  std::map<std::string, std::vector<ADODB::Recordset>> waiting;  // by their parent
  std::unordered_map<std::string, int> levels{{"0", 0}};         // of the nodes
  bool is_whole = true;
  const auto add_below = [&](const std::string& parent) {
    const int level = levels.at(parent) + 1;
    if (level > SSTree::most_levels) {
      is_whole = false;
      return false;
    }
    initone();
    std::string key = key_of(rows);
    return SSTree1.Nodes.Has(key) && levels.emplace(std::move(key), level).second;
  };
  for (; !rows.eof(); rows.MoveNext()) {
    const std::string parent = text_of(rows, "p_replace_m_no");
    const bool waits = !levels.contains(parent) || is_otherwise_too_early(rows, parent);
    waits ? waiting[parent].push_back(rows) : static_cast<void>(add_below(parent));
  }
  std::queue<std::string> ready;  // parents that are there, of rows that wait
  for (const auto& [parent, rows_below] : waiting) {
    if (levels.contains(parent)) ready.push(parent);
  }
  for (; !ready.empty(); ready.pop()) {
    const auto below = waiting.extract(ready.front());
    for (const ADODB::Recordset& row : below.mapped()) {
      rows = row;
      if (add_below(ready.front()) && waiting.contains(key_of(row))) ready.push(key_of(row));
    }
  }
  return is_whole;
}

void replace_create::initone() {
  auto& state = shared();
  const auto& row = state.basCopyRs;
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
    state.atNode.kind("項目");
  } else if (use_type == "C") {
    state.atNode = SSTree1.Nodes.AddChild(parent, key, condition_text(row, state.basRS));
    state.atNode.Image("cond");
    state.atNode.kind(text_of(row, "replace_cond_type") == "1" ? "以外の条件" : "条件");
  } else if (use_type == "R") {
    state.atNode = SSTree1.Nodes.AddChild(parent, key, text_of(row, "replace_title"));
    state.atNode.Image("val");
    state.atNode.kind("置換値");
  } else {
    return;
  }
  state.atNode.parent().Expanded(true);
  show_as_row(state.atNode);
}

}  // namespace ta_vorlumine
