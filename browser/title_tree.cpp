#include <exception>

#include "browser/replace_form.h"
#include "controls/tree/tree_filling.h"
#include "platform/messages.h"
#include "rules/failure_words.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

void replaceForm::init_form() {
  Init_ToolBar();
  basNodeKey = "0";
  Label1.set_caption("");
  const tree_filling filling(SSTree1, ImageList1, "条件設定", "0");
  atNode = filling.root();
  load_title_children(0);
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
    platform::message(words_for(failure));
  }
}

void replaceForm::add_title_node(const ADODB::Fields& row) {
  const ADODB::Value title = row.Item("title").Value();
  const std::string key = row.Item("replace_no").Value().text();
  const std::string kind = row.Item("kind").Value().text();
  const Node node = SSTree1.Nodes.AddChild(row.Item("p_replace_no").Value().text(), key,
                                           title.is_null() ? "NULL" : title.text(), "0");
  node.parent().Expanded(true);
  show_as_row(node);
  if (kind == "F") {
    show_as_folder(node);
  } else if (kind == "C") {
    node.Tag(key);
    node.Image(definition_image(row.Item("replace_no").Value().number()));
  }
}

void replaceForm::show_as_folder(const Node& node) {
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
