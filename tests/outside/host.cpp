#include <ta_vorlumine/replace_class.h>

#include <iostream>
#include <stdexcept>
#include <thread>

namespace {

int show(const char* connect_string) {
  ta_vorlumine::replaceClass editor;
  editor.CONNECT_STRING = connect_string;
  try {
    editor.replace_show();
    return 0;
  } catch (const std::runtime_error& failure) {
    std::cout << failure.what() << '\n';
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const char* connect_string = argc > 1 ? argv[1] : "";
  // Not the thread on which the process began, but the first that asks for a window.
  int here = 0, elsewhere = 0;
  std::thread([&] { here = show(connect_string) + show(connect_string); }).join();
  std::thread([&] { elsewhere = show(connect_string); }).join();
  return here == 2 && elsewhere == 1 ? 1 : 0;
}
