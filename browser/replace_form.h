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
#include "rules/shared_state.h"

namespace ta_vorlumine {

class title_rows;

/// The title browser: all folders and definitions of the store as one tree.
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

  // What all forms share; see shared_state for what each means.
  ADODB::Connection& conn = shared().conn;
  ADODB::Recordset& basRS = shared().basRS;
  ADODB::Recordset& basCopyRs = shared().basCopyRs;
  Node& atNode = shared().atNode;
  Node& tmpNode = shared().tmpNode;
  std::string& basNodeKey = shared().basNodeKey;
  std::string& basAU = shared().basAU;
  std::int16_t& f_replace_no = shared().f_replace_no;
  std::int16_t& f_replace_m_no = shared().f_replace_m_no;

  /// Disables every button but `close`.
  void Init_ToolBar();

  /// Builds the tree anew from the store. A level that the store refuses is told in a message and
  /// left out; a store that is lost meanwhile ends the tree with one message. Any other failure
  /// goes to the caller.
  void init_form();

  /// Gives a row of the title tree the pictures of a folder.
  static void show_as_folder(const Node& node);

  /// See rules/new_keys.h.
  std::int64_t getfrom_seqno(std::string_view name);
  void update_seqno(std::string_view name);

  /// Deletes all rows below the row `P_ID` of `replace`, each with its rule rows and lines, and
  /// that row.
  void DeleteChild(const std::string& P_ID);

 private:
  void fill_tree(const title_rows& rows);
  void load_titles(const title_rows& rows);
  void add_title_node(const title_rows& rows, const ADODB::Fields& row);

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
  void read_reserved_key();
  void show_editor();

  void move_title_node(const Node& source, const Node& target);
  /// What a drop and the menu do: moves the node, unless both bear the same text.
  void file_title_node(const Node& source, const Node& target);
  void press_on_tree(int x, int y);
  void move_on_tree(int buttons);
  void drag_over_tree(int x, int y);
  void drop_on_tree();

  Node drag_source_node;      ///< the node under the pointer at the last press, or empty
  bool drag_running = false;  ///< from the start of a drag to its drop
};

}  // namespace ta_vorlumine
