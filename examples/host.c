/* Shows the title browser over the rule store that the argument names. */

#include <stdio.h>

#include "ta_vorlumine/ta_vorlumine.h"

int main(int argc, char** argv) {
  ta_vorlumine_editor* editor;
  int failed;

  if (argc != 2) {
    fprintf(stderr, "usage: %s CONNECT_STRING\n", argv[0]);
    return 2;
  }
  editor = ta_vorlumine_create();
  failed = ta_vorlumine_set_connect_string(editor, argv[1]) || ta_vorlumine_show(editor);
  if (failed) fprintf(stderr, "%s\n", ta_vorlumine_last_failure(editor));
  ta_vorlumine_destroy(editor);
  return failed;
}
