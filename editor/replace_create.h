#pragma once

#include <cstdint>
#include <string>

#include "controls/tree/ss_tree.h"
#include "platform/form.h"
#include "platform/image_list.h"
#include "platform/label.h"
#include "platform/text_box.h"
#include "platform/toolbar.h"
#include "store/recordset.h"

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

  // What the editor and its dialogs hand each other.
  std::int16_t up_replace_no = 0;      ///< key of the `replace` row under edit
  std::string f_attr;                  ///< attr of the field that a condition dialog serves
  std::string f_fieldname;             ///< name of that field
  std::int16_t f_replace_cond_no = 0;  ///< number of the lines that the dialog edits
  std::int16_t f_cond_value = 0;       ///< 1: an existing condition, 0: a new one under a field
  std::int16_t sno_current = 0;        ///< number that the next new line gets
  bool cond_mode = false;              ///< the condition had lines when its dialog opened
  std::int16_t r_value = 0;            ///< 1: the value dialog edits a value, 0: it adds one

  /// Disables every button but `exit`.
  void Init_ToolBar();

  /// Builds the rule tree of form<replaceForm>().f_replace_no anew from the store and takes
  /// basNodeKey back to "0".
  void init_tree();
  /// Adds the node of the current row of form<replaceForm>().basCopyRs.
  void initone();

  /// A column as text for a quoted place, each "'" doubled; empty for null and on any failure.
  static std::string GetRecordValue(const ADODB::Recordset& rs, const std::string& fid);
  /// A column as text for an unquoted place; "0" for null and on any failure.
  static std::string GetRecordNum(const ADODB::Recordset& rs, const std::string& fid);

  /// Adds the otherwise branch under the field node basNodeKey, in the tree and in the store.
  void ins_yiwai();
  /// Deletes from the store the row `P_ID` of the rule tree with all below it, lines included; the
  /// lines of `P_ID` itself are the caller's. The tree stays as it is.
  void DeleteChild(const std::string& P_ID);
  /// Lends the condition dialogs a number, f_replace_cond_no, under which the definition has no
  /// lines; the counter is advanced only past numbers that proved to be taken.
  void lend_condition_number();
  /// Deletes from the store the selected condition, whose lines are gone already, as deleting its
  /// node would. Asks first if branches would go with it; false if the user keeps them.
  [[nodiscard]] bool remove_emptied_condition();
  /// Deletes the child row of a node that has exactly one, and nothing below it.
  void delete_from_cond(std::int32_t replace_no, std::int32_t p_replace_m_no);

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
  void show_definition(int mode);
  void fill_fields(const std::string& statement);
  static void refresh_browser();
  void press(int position);

  void add_rule_nodes();

  struct copy_numbers;
  void copy_definition(std::int32_t source);
  static void require_room(ADODB::Recordset rules, const copy_numbers& numbers);
  static void copy_replace_row(std::int32_t source, std::int32_t key, std::int32_t first_rule);
  static std::int64_t copy_rule_row(const ADODB::Recordset& rule, copy_numbers& numbers);
  static void copy_cond_rows(std::int64_t condition, const copy_numbers& numbers);
  static void write_counters(const copy_numbers& numbers, std::int64_t last_rule);
  static void delete_definition(std::int64_t definition);

  void select_node(const Node& node);
  void enable_for(const Node& node);
  void enable(bool addr_set, bool cond_set, bool cond_val_set, bool del_set);

  void addr_set();
  void cond_val_set();
  void cond_set();
  std::int16_t lend_new();
  [[nodiscard]] bool read_field_attr(bool existing);
  void lend_yesno_number(const ADODB::Recordset& row, std::int16_t first_cond_no);
  void set_next_line_number();
  void open_condition_dialog();

  void del_set();
  void delete_field(const ADODB::Recordset& row, const std::string& key);
  void delete_condition(const ADODB::Recordset& row, const std::string& key);
  void delete_otherwise(const Node& otherwise);
  void delete_value(const ADODB::Recordset& row, const std::string& key);

  void exit();
  void exit_untitled();
  bool definition_stands();

  void load_text_cond_grid();
  void load_date_cond_grid();
  void load_number_cond_grid();
  void show_yesno_cond();
};

}  // namespace ta_vorlumine
