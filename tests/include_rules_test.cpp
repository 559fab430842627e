#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace {

namespace fs = std::filesystem;

using names = std::set<std::string>;

/// The includes of every source file of the rooms, by path from the project's root.
std::map<std::string, names> includes_of_rooms() {
  std::map<std::string, names> found;
  for (const char* room :
       {"entry", "browser", "editor", "conditions", "values", "platform", "store"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(PROJECT_ROOT) / room)) {
      const std::string ending = entry.path().extension().string();
      if (ending != ".h" && ending != ".cpp") continue;
      names& includes = found[std::string(room) + "/" + entry.path().filename().string()];
      std::ifstream file(entry.path());
      for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("#include ")) continue;
        includes.insert(line.substr(10, line.find_last_of("\">") - 10));
      }
    }
  }
  return found;
}

std::string room_of(const std::string& path) {
  return path.substr(0, path.find('/'));
}

TEST(IncludeRules, RoomsLookDownwardsOnly) {
  const names forms{"browser", "editor", "conditions", "values"};
  for (const auto& [file, includes] : includes_of_rooms()) {
    const std::string room = room_of(file);
    for (const std::string& include : includes) {
      const std::string target = room_of(include);
      const bool lowest = room == "platform" || room == "store";
      if (lowest) {
        EXPECT_TRUE(!forms.contains(target) && target != "entry" &&
                    (target == room || (target != "platform" && target != "store")))
            << file << " includes " << include;
      }
      EXPECT_FALSE(forms.contains(room) && (target == "entry" || target == "host"))
          << file << " includes " << include;
    }
  }
}

TEST(IncludeRules, TheToolkitShowsInFewFilesAndInNoHeaderThatOthersInclude) {
  const names controls{
      "browser/ss_tree.cpp",         "browser/tree_drag.cpp",      "browser/tree_model.h",
      "browser/tree_model.cpp",      "browser/tree_view.h",        "browser/tree_view.cpp",
      "conditions/flex_grid.cpp",    "conditions/cell_editor.cpp", "conditions/cell_list.cpp",
      "conditions/cell_painter.cpp", "conditions/grid_edit.cpp",   "conditions/grid_cursor.cpp",
      "conditions/grid_press.h",     "conditions/grid_press.cpp",  "conditions/grid_model.cpp",
      "conditions/grid_view.cpp"};
  for (const auto& [file, includes] : includes_of_rooms()) {
    if (room_of(file) == "platform" || controls.contains(file)) continue;
    for (const std::string& include : includes) {
      const bool toolkit = include.size() > 1 && include[0] == 'Q' && std::isupper(include[1]);
      EXPECT_FALSE(toolkit || controls.contains(include)) << file << " includes " << include;
    }
  }
}

TEST(IncludeRules, OnlyTheCommandsIncludeWhatTheyOpen) {
  const names dialogs{"conditions/r_text_cond.h", "conditions/r_number_cond.h",
                      "conditions/r_date_cond.h", "conditions/r_yesno_cond.h",
                      "conditions/address_add.h", "values/set_value.h"};
  for (const auto& [file, includes] : includes_of_rooms()) {
    for (const std::string& include : includes) {
      if (room_of(file) == "editor" && dialogs.contains(include)) {
        EXPECT_TRUE(file == "editor/rule_commands.cpp" || file == "editor/condition_grids.cpp")
            << file << " includes " << include;
      }
      if (room_of(file) == "browser" && include.starts_with("editor/")) {
        EXPECT_EQ(file, "browser/browser_commands.cpp");
      }
    }
  }
}

bool reaches(const std::map<std::string, names>& files, const std::string& from,
             const std::string& goal, names& seen) {
  const auto found = files.find(from);
  if (found == files.end() || !seen.insert(from).second) return false;
  return std::any_of(found->second.begin(), found->second.end(), [&](const std::string& next) {
    return next == goal || reaches(files, next, goal, seen);
  });
}

TEST(IncludeRules, NoFilesIncludeEachOtherInALoop) {
  const auto files = includes_of_rooms();
  ASSERT_GT(files.size(), 100U);
  for (const auto& [file, includes] : files) {
    names seen;
    EXPECT_FALSE(reaches(files, file, file, seen)) << file;
  }
}

}  // namespace
