#include <exception>

#include "browser/replace_form.h"
#include "platform/messages.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

const RGB root_colour(200, 160, 50);
const RGB row_colour(0, 0, 255);

}  // namespace

void replaceForm::init_form() {
  SSTree1.set_image_list(ImageList1);
  Init_ToolBar();
  basNodeKey = "0";
  SSTree1.UniformRows(true);
  SSTree1.Redraw(false);
  SSTree1.Nodes.Clear();
  atNode = SSTree1.Nodes.Add("0", "条件設定", "0");
  atNode.Font(false, 10);
  atNode.ForeColor(root_colour);
  atNode.Image("root");
  load_title_children(0);
  SSTree1.TopNode(SSTree1.Nodes.Item(SSTree1.Nodes.Count()).Root());
  SSTree1.Indentation(250);
  SSTree1.Redraw(true);
}

// A level that fails costs the tree the rest of that level, not the whole load.
void replaceForm::load_title_children(std::int32_t parent) {
  try {
    ADODB::Recordset rows;
    rows.Open(
        sql("SELECT * FROM REPLACE WHERE P_REPLACE_NO = <p_val> ORDER BY REPLACE_NO", {parent}),
        conn);
    for (; !rows.eof(); rows.MoveNext()) {
      add_title_node(rows.Fields());
      load_title_children(
          static_cast<std::int32_t>(rows.Fields().Item("replace_no").Value().number()));
    }
    rows.Close();
  } catch (const std::exception& failure) {
    platform::message(failure.what());
  }
}

void replaceForm::add_title_node(const ADODB::Fields& row) {
  const ADODB::Value title = row.Item("title").Value();
  const std::string key = row.Item("replace_no").Value().text();
  const std::string kind = row.Item("kind").Value().text();
  const Node node = SSTree1.Nodes.AddChild(row.Item("p_replace_no").Value().text(), key,
                                           title.is_null() ? "NULL" : title.text(), "0");
  node.Font(false, 10);
  node.parent().Expanded(true);
  node.ForeColor(row_colour);
  if (kind == "F") {
    show_as_folder(node);
  } else if (kind == "C") {
    node.Tag(key);
    node.Image(definition_image(row.Item("replace_no").Value().number()));
  }
}

void replaceForm::show_as_folder(const Node& node) {
  node.Font(false, 10);
  node.ForeColor(row_colour);
  node.Image("close");
  node.ExpandedImage("open");
}

// A definition without values counts as one whose values are all images.
std::string replaceForm::definition_image(std::int64_t replace_no) {
  basCopyRs = conn.Execute(
      sql("select replace_type,r_field_id,r_text,r_text_filename,r_image_filename,r_mmedia_filename"
          " from replace_m where use_type='R' and replace_no=<replace_no>",
          {replace_no}));
  std::size_t images = 0;
  std::size_t multimedia = 0;
  std::size_t texts = 0;
  const std::size_t all = basCopyRs.RecordCount();
  for (; !basCopyRs.eof(); basCopyRs.MoveNext()) {
    const std::string type = basCopyRs.Fields().Item("replace_type").Value().text();
    images += type == "I" ? 1 : 0;
    multimedia += type == "M" ? 1 : 0;
    texts += type == "S" || type == "T" || type == "F" ? 1 : 0;
  }
  if (images == all) return "cond2";
  if (multimedia == all) return "cond3";
  if (texts == all) return "cond1";
  return "cond";
}

}  // namespace ta_vorlumine
