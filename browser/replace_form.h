#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "controls/tree/ss_tree.h"
#include "platform/form.h"
#include "platform/image_list.h"
#include "platform/label.h"
#include "platform/toolbar.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// The title browser: all folders and definitions of the store as one tree. It is also the home of
/// what the forms share; they reach it as form<replaceForm>().
class replaceForm {
 public:
  replaceForm();

  platform::Form window{"replaceForm", "置換タイトル一覧", 9000, 9000,
                        platform::Form::frame::fixed};
  platform::ImageList imToolbar;
  platform::ImageList ImageList1;
  platform::Toolbar Toolbar1;
  SSTree SSTree1;
  platform::Label Label1;

  ADODB::Connection conn;      ///< the one connection: all statements run on it
  ADODB::Recordset basRS;      ///< scratch: the last query of whichever form asked
  ADODB::Recordset basCopyRs;  ///< scratch: a second one
  Node atNode;                 ///< the node last added
  Node tmpNode;                ///< the node last selected, in the title tree or the rule tree
  std::string basNodeKey;      ///< its key; "0" is the root of either tree
  /// The mode of the dialog or editor about to open: "1" new folder, "2" rename folder,
  /// "5" new definition, "6" edit definition, "8" copy definition.
  std::string basAU;
  std::int16_t f_replace_no = 0;    ///< the definition under edit
  std::int16_t f_replace_m_no = 0;  ///< the key reserved for its top rule row

  /// Disables every button but `close`.
  void Init_ToolBar();

  /// Builds the tree anew from the store. A level that the store refuses is told in a message and
  /// left out; any other failure goes to the caller.
  void init_form();

  /// Gives a row of the title tree the pictures of a folder.
  static void show_as_folder(const Node& node);

  /// The last number used of the counter `name`. Tells the user if the table of counters is empty,
  /// and gives 0 then.
  std::int64_t getfrom_seqno(std::string_view name);
  void update_seqno(std::string_view name);

  /// Deletes all rows below the row `P_ID` of `replace`, rule rows and lines included, and that
  /// row.
  void DeleteChild(const std::string& P_ID);

 private:
  void load_title_children(std::int32_t parent);
  void add_title_node(const ADODB::Fields& row);
  [[nodiscard]] std::string definition_image(std::int64_t replace_no);

  void select_node(const Node& node);
  void enable(std::initializer_list<const char*> on, std::initializer_list<const char*> off);
  void enable_for_root();
  void enable_for_folder();
  void enable_for_definition();

  void press(const std::string& button);
  void add_folder();
  void rename_folder();
  void delete_folder();
  void add_definition();
  void edit_definition();
  void copy_definition();
  void delete_definition();

  void move_title_node(const Node& source, const Node& target);
  void press_on_tree(int x, int y);
  void move_on_tree(int buttons);
  void drag_over_tree(int x, int y);
  void drop_on_tree();

  Node drag_source_node;      ///< the node under the pointer at the last press, or empty
  bool drag_running = false;  ///< from the start of a drag to its drop
};

}  // namespace ta_vorlumine
