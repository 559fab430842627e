#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/tree/ss_tree.h"
#include "platform/form.h"
#include "platform/image_list.h"
#include "platform/label.h"
#include "platform/text_box.h"
#include "platform/toolbar.h"
#include "rules/shared_state.h"

namespace ta_vorlumine {

/// The editor of one definition: its title, its remark and its rule tree. There is no working copy:
/// every command writes to the store at once; only title and remark wait for `exit`.
class replace_create {
 public:
  replace_create();

  platform::Form window{"replace_create", "置換の設定", 9600, 9000};
  platform::ImageList imToolbar;
  platform::ImageList ImageList1;
  platform::Toolbar Toolbar1;
  platform::TextBox Text1;
  platform::Label Label1;
  platform::TextBox Text2;
  platform::Label Label2;
  SSTree SSTree1;

  // What the editor and its dialogs hand each other; see shared_state for what each means.
  std::int16_t& up_replace_no = shared().f_replace_no;
  std::string& f_attr = shared().f_attr;
  std::string& f_fieldname = shared().f_fieldname;
  std::int16_t& f_replace_cond_no = shared().f_replace_cond_no;
  std::int16_t& f_cond_value = shared().f_cond_value;
  std::int32_t& sno_current = shared().sno_current;
  bool& cond_mode = shared().cond_mode;
  std::int16_t& r_value = shared().r_value;

  /// Disables every button but `exit`.
  void Init_ToolBar();

  /// Builds the rule tree of f_replace_no anew from the store and takes basNodeKey back to "0".
  void init_tree();
  /// Adds the node of the current row of basCopyRs.
  void initone();

  /// See rules/record_values.h.
  static std::string GetRecordValue(const ADODB::Recordset& rs, const std::string& fid);
  static std::string GetRecordNum(const ADODB::Recordset& rs, const std::string& fid);

  /// Adds the otherwise branch under the field node basNodeKey, in the store and in the tree.
  void ins_yiwai();
  /// Deletes from the store the row `P_ID` of the rule tree with all below it, lines included; the
  /// lines of `P_ID` itself are the caller's. The tree stays as it is.
  static void DeleteChild(const std::string& P_ID);
  /// Deletes the child row of a node that has exactly one, and nothing below it.
  static void delete_from_cond(std::int32_t replace_no, std::int32_t p_replace_m_no);

 private:
  // Positions in the toolbar, separators counted.
  enum button {
    addr_set_button = 1,
    cond_set_button = 2,
    cond_val_set_button = 3,
    del_set_button = 5,
    exit_button = 7
  };

  void load();
  void open_definition();
  void fill_fields();
  void press(int position);
  /// After a dialog has gone: the tree as the store has it now, and a fresh selection asked for.
  void refresh();

  void look_up_all(ADODB::Recordset rows);
  void look_up(const ADODB::Recordset& row);
  /// False if rows were left out because they are nested too deep; so does add_rule_nodes().
  bool fill_tree();
  bool add_rule_nodes();

  void select_node(const Node& node);
  void enable_for(const Node& node);
  struct allowed_buttons {
    bool addr_set = false;
    bool cond_set = false;
    bool cond_val_set = false;
    bool del_set = false;
  };
  void enable(const allowed_buttons& allowed);

  void addr_set();
  void cond_val_set();
  void cond_set();
  static void read_children();
  void mend_lone_condition();
  [[nodiscard]] bool read_field_attr();
  [[nodiscard]] row_key number_for_dialog(const ADODB::Recordset& row);
  void set_next_line_number();
  void open_condition_dialog();

  void del_set();
  void remove_nodes(const std::vector<row_key>& keys);

  void exit();
  [[nodiscard]] bool discard_untitled();
  [[nodiscard]] bool store_checked_title();
  [[nodiscard]] bool store_title();
  [[nodiscard]] static bool may_leave_unsaved(const ADODB::Error& failure);

  struct title_fields {
    std::string title;
    std::string remark;
    friend bool operator==(const title_fields&, const title_fields&) = default;
  };
  [[nodiscard]] title_fields wanted_fields();
  [[nodiscard]] static title_fields stored_fields();

  /// What the nodes show of other tables, by the place of the row, while the tree is built.
  std::vector<ADODB::Recordset> looked_up_;

  /// What the editor opened with. A box may show bytes that are no text otherwise than they are
  /// stored.
  struct {
    title_fields stored;
    std::string shown_title;
    std::string shown_remark;
  } loaded_;

  void load_text_cond_grid();
  void load_date_cond_grid();
  void load_number_cond_grid();
  void show_yesno_cond();
};

}  // namespace ta_vorlumine
