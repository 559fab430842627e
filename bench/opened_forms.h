#pragma once

#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "made_store.h"

namespace bench {

/// The connection of all forms, open on a store.
class open_connection {
 public:
  explicit open_connection(const made_store& store) { shared.conn.Open(store.connect_string()); }
  open_connection(const open_connection&) = delete;
  open_connection& operator=(const open_connection&) = delete;
  ~open_connection() {
    shared.window.unload();
    shared.conn.Close();
  }

  ta_vorlumine::replaceForm& shared = platform::form<ta_vorlumine::replaceForm>();
};

/// The title browser on a store, its window made but not run.
struct open_browser : open_connection {
  explicit open_browser(const made_store& store) : open_connection(store) { shared.window.load(); }
};

/// The editor on definition 1 of a store, likewise.
struct open_editor : open_connection {
  explicit open_editor(const made_store& store) : open_connection(store) {
    shared.basAU = "6";
    shared.basNodeKey = "1";
    shared.f_replace_no = 1;
    editor.window.load();
  }
  ~open_editor() { editor.window.unload(); }

  ta_vorlumine::replace_create& editor = platform::form<ta_vorlumine::replace_create>();
};

}  // namespace bench
