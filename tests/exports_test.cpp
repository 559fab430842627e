#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <thread>

#include "ta_vorlumine/ta_vorlumine.h"
#include "test_store.h"
#include "user.h"

namespace {

TEST(SharedLibrary, ExportsThePublicSymbolsOnly) {
  EXPECT_EQ(std::system("nm --dynamic --defined-only --demangle --format=posix " SHARED_LIBRARY
                        " | sed 's/ .*//' | LC_ALL=C sort -u | diff " PROJECT_ROOT
                        "/tests/exports.txt -"),
            0);
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
