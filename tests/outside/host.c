#include <stdio.h>
#include <ta_vorlumine/ta_vorlumine.h>

int main(int argc, char** argv) {
  ta_vorlumine_editor* editor = ta_vorlumine_create();
  int failed = ta_vorlumine_set_connect_string(editor, argc > 1 ? argv[1] : NULL) ||
               ta_vorlumine_show(editor);
  printf("%s\n", ta_vorlumine_last_failure(editor));
  ta_vorlumine_destroy(editor);
  return failed;
}
