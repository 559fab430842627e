#include "conditions/r_text_cond.h"

#include "platform/messages.h"
#include "rules/text_limits.h"
#include "store/text.h"

namespace ta_vorlumine {
namespace {

constexpr int value = 5;
constexpr int method = 6;

bool is_complete(const line_cells& row) {
  return !row[value].empty() && !row[method].empty();
}

std::optional<ADODB::statement> insert(const line_cells& row) {
  if (!is_complete(row)) return std::nullopt;
  return ADODB::sql(
      "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_val,s_method) "
      "values(<cell 1>,<cell 2>,'<cell 3>','<cell 4>','<cell 5>','<cell 6>')",
      {row[1], row[2], row[3], row[4], row[value], row[method]});
}

void validate(VSFlexGrid& fg, int col, bool& cancel) {
  if (col != value || ADODB::character_count(fg.EditText()) <= longest_text) return;
  platform::message("条件名が文字列長すぎます");
  cancel = true;
}

}  // namespace

r_text_cond::r_text_cond()
    : dialog("r_text_cond",
             {.use_type = "S",
              .format = "#Rec|replace_no|replace_cond_no|sno|use_type|<比較値|<比較方法",
              .widths = {2400, 1800},
              .lists = {"", "#1;部分一致|#2;先頭一致|#3;完全一致"},
              .select = "select replace_no,replace_cond_no,sno,use_type,s_val,s_method from "
                        "replace_cond where replace_no=<f_replace_no> and "
                        "replace_cond_no=<f_replace_cond_no> and use_type='S'",
              .is_emptied = [](const line_cells& row) { return !is_complete(row); },
              .insert = insert,
              .test = {},
              .adjust = {},
              .validate = validate}) {}

}  // namespace ta_vorlumine
