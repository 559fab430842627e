#pragma once

#include <cstdint>
#include <string>

#include "controls/tree/ss_tree.h"
#include "rules/row_key.h"
#include "store/connection.h"
#include "store/recordset.h"

namespace ta_vorlumine {

/// What a dialog or the editor is opened for. The numbers are those of basAU.
enum class edit_mode {
  new_folder = 1,
  rename_folder = 2,
  new_definition = 5,
  edit_definition = 6,
  copy_definition = 8
};

/// What the forms hand each other. The title browser and the editor show these members as their
/// own, under the same names; forms that lie below them reach them here. Trees and dialogs hold
/// nothing else that another form needs.
struct shared_state {
  ADODB::Connection conn;           ///< the one connection: all statements run on it
  ADODB::Recordset basRS;           ///< scratch: the last query of whichever form asked
  ADODB::Recordset basCopyRs;       ///< scratch: a second one
  Node atNode;                      ///< the node last added
  Node tmpNode;                     ///< the node last selected, in the title tree or the rule tree
  std::string basNodeKey;           ///< its key; "0" is the root of either tree
  std::string basAU;                ///< the edit_mode of what opens next, as decimal text
  std::int16_t f_replace_no = 0;    ///< the definition under edit
  std::int16_t f_replace_m_no = 0;  ///< the key reserved for its top rule row

  // Between the editor and its dialogs.
  std::string f_attr;                  ///< attr of the field that a condition dialog serves
  std::string f_fieldname;             ///< name of that field
  std::int16_t f_replace_cond_no = 0;  ///< number of the lines that the dialog edits
  std::int16_t f_cond_value = 0;       ///< 1: an existing condition, 0: a new one under a field
  std::int32_t sno_current = 0;        ///< number that the next new line gets; checked when it does
  bool cond_mode = false;              ///< the condition had lines when its dialog opened
  std::int16_t r_value = 0;            ///< 1: the value dialog edits a value, 0: it adds one

  [[nodiscard]] edit_mode mode() const;
  void set_mode(edit_mode mode);
  /// basNodeKey as a number.
  [[nodiscard]] row_key selected_key() const;
};

/// The one of the calling thread.
[[nodiscard]] shared_state& shared();

}  // namespace ta_vorlumine
