#include <exception>
#include <new>
#include <string>

#include "ta_vorlumine/replace_class.h"
#include "ta_vorlumine/ta_vorlumine.h"

struct ta_vorlumine_editor {
  ta_vorlumine::replaceClass editor;
  std::string failure;
  const char* last_failure = "";  // `failure`, or a fixed text where there was no memory for it
};

namespace {

void remember(ta_vorlumine_editor& editor, const char* failure) noexcept {
  try {
    editor.failure = failure;
    editor.last_failure = editor.failure.c_str();
  } catch (...) {
    editor.last_failure = "out of memory";
  }
}

/// The boundary to the host: runs `work` and gives the code that tells how it ended.
template <class Work>
int guarded(ta_vorlumine_editor* editor, Work work) noexcept {
  if (!editor) return 1;
  editor->last_failure = "";
  try {
    work();
    return 0;
  } catch (const std::bad_alloc&) {
    editor->last_failure = "out of memory";
  } catch (const std::exception& failure) {
    remember(*editor, failure.what());
  } catch (...) {
    editor->last_failure = "unknown failure";
  }
  return 1;
}

}  // namespace

const char* ta_vorlumine_version() {
  return ta_vorlumine::replaceClass::version();
}

ta_vorlumine_editor* ta_vorlumine_create() {
  return new (std::nothrow) ta_vorlumine_editor;
}

int ta_vorlumine_set_connect_string(ta_vorlumine_editor* editor, const char* connect_string) {
  return guarded(editor,
                 [&] { editor->editor.CONNECT_STRING = connect_string ? connect_string : ""; });
}

const char* ta_vorlumine_get_connect_string(const ta_vorlumine_editor* editor) {
  return editor ? editor->editor.CONNECT_STRING.c_str() : "";
}

int ta_vorlumine_show(ta_vorlumine_editor* editor) {
  return guarded(editor, [&] { editor->editor.replace_show(); });
}

const char* ta_vorlumine_last_failure(const ta_vorlumine_editor* editor) {
  return editor ? editor->last_failure : "there is no editor";
}

void ta_vorlumine_destroy(ta_vorlumine_editor* editor) {
  delete editor;
}
