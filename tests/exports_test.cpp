#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <thread>

#include "ta_vorlumine/ta_vorlumine.h"
#include "test_store.h"
#include "user.h"

namespace {

struct pipe_closer {
  void operator()(FILE* pipe) const { pclose(pipe); }
};

std::set<std::string> exported_symbols() {
  const std::unique_ptr<FILE, pipe_closer> pipe(
      popen("nm --dynamic --defined-only --demangle --format=posix " SHARED_LIBRARY, "r"));
  std::set<std::string> symbols;
  for (std::array<char, 1000> line; std::fgets(line.data(), line.size(), pipe.get());) {
    std::string name(line.data());
    symbols.insert(name.substr(0, name.find(' ')));
  }
  return symbols;
}

TEST(SharedLibrary, ExportsThePublicSymbolsOnly) {
  const std::set<std::string> expected = {"ta_vorlumine::replaceClass::replace_show()",
                                          "ta_vorlumine_create",
                                          "ta_vorlumine_set_connect_string",
                                          "ta_vorlumine_get_connect_string",
                                          "ta_vorlumine_show",
                                          "ta_vorlumine_last_failure",
                                          "ta_vorlumine_destroy"};
  EXPECT_EQ(exported_symbols(), expected);
}

class CInterface : public testing::Test {
 protected:
  ~CInterface() override { ta_vorlumine_destroy(editor_); }
  [[nodiscard]] std::string last_failure() const { return ta_vorlumine_last_failure(editor_); }

  ta_vorlumine_editor* editor_ = ta_vorlumine_create();
};

TEST_F(CInterface, TakesNullForEveryArgument) {
  EXPECT_EQ(ta_vorlumine_set_connect_string(nullptr, "Driver=SQLite;Database=a"), 1);
  EXPECT_STREQ(ta_vorlumine_get_connect_string(nullptr), "");
  EXPECT_EQ(ta_vorlumine_show(nullptr), 1);
  EXPECT_STREQ(ta_vorlumine_last_failure(nullptr), "there is no editor");
  ta_vorlumine_destroy(nullptr);

  EXPECT_STREQ(ta_vorlumine_get_connect_string(editor_), "");
  EXPECT_EQ(ta_vorlumine_set_connect_string(editor_, nullptr), 0);
  EXPECT_STREQ(ta_vorlumine_get_connect_string(editor_), "");
}

TEST_F(CInterface, ShowsTwiceInARowAndTellsAFailureInBetween) {
  const harness::test_store store;
  const auto show = [&] {
    harness::play([&] { EXPECT_EQ(ta_vorlumine_show(editor_), 0) << last_failure(); },
                  [] { harness::in("replaceForm"); });
  };
  const std::string missing = "Driver=SQLite;Database=" + (store.folder() / "無い.db").string();
  for (int round = 0; round < 2; ++round) {
    ASSERT_EQ(ta_vorlumine_set_connect_string(editor_, missing.c_str()), 0);
    EXPECT_STREQ(ta_vorlumine_get_connect_string(editor_), missing.c_str());
    EXPECT_EQ(ta_vorlumine_show(editor_), 1);
    EXPECT_NE(last_failure().find("無い.db"), std::string::npos) << last_failure();

    ASSERT_EQ(ta_vorlumine_set_connect_string(editor_, store.connect_string().c_str()), 0);
    EXPECT_EQ(last_failure(), "");
    show();
    show();
  }
}

TEST_F(CInterface, RefusesAnotherThreadThanTheFirst) {
  const harness::test_store store;
  ASSERT_EQ(ta_vorlumine_set_connect_string(editor_, store.connect_string().c_str()), 0);
  harness::play([&] { EXPECT_EQ(ta_vorlumine_show(editor_), 0); },
                [] {
                  ta_vorlumine_editor* other = ta_vorlumine_create();
                  std::thread([&] { EXPECT_EQ(ta_vorlumine_show(other), 1); }).join();
                  EXPECT_STREQ(ta_vorlumine_last_failure(other),
                               "windows can only be shown on the thread that showed the first one");
                  ta_vorlumine_destroy(other);
                });
}

}  // namespace
