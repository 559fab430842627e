#include <ta_vorlumine/replace_class.h>

#include <iostream>
#include <stdexcept>

int main(int argc, char** argv) {
  ta_vorlumine::replaceClass editor;
  editor.CONNECT_STRING = argc > 1 ? argv[1] : "";
  try {
    editor.replace_show();
    return 0;
  } catch (const std::runtime_error& failure) {
    std::cout << failure.what() << '\n';
    return 1;
  }
}
