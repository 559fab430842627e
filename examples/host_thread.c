/* Shows the title browser twice on a thread of its own, while the program goes on. */

#include <pthread.h>
#include <stdio.h>

#include "ta_vorlumine/ta_vorlumine.h"

static void* show_twice(void* editor) {
  return ta_vorlumine_show(editor) || ta_vorlumine_show(editor) ? editor : NULL;
}

static int run(ta_vorlumine_editor* editor) {
  pthread_t thread;
  void* failed = NULL;

  if (pthread_create(&thread, NULL, show_twice, editor) != 0) {
    fprintf(stderr, "no thread\n");
    return 1;
  }
  puts("The browser runs on a thread of its own.");
  pthread_join(thread, &failed);
  if (failed) fprintf(stderr, "%s\n", ta_vorlumine_last_failure(editor));
  return failed != NULL;
}

int main(int argc, char** argv) {
  ta_vorlumine_editor* editor;
  int failed;

  if (argc != 2) {
    fprintf(stderr, "usage: %s CONNECT_STRING\n", argv[0]);
    return 2;
  }
  editor = ta_vorlumine_create();
  failed = ta_vorlumine_set_connect_string(editor, argv[1]) || run(editor);
  ta_vorlumine_destroy(editor);
  return failed;
}
