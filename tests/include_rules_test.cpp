#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace {

namespace fs = std::filesystem;

using names = std::set<std::string>;

/// From the ground up. A file includes what lies on a lower floor, or in its own room.
const std::map<std::string, int> floors{{"store", 0},  {"platform", 0}, {"controls", 1},
                                        {"rules", 2},  {"values", 3},   {"conditions", 3},
                                        {"editor", 4}, {"browser", 5},  {"entry", 6},
                                        {"tool", 7},   {"examples", 7}};

/// The includes of every source file of the rooms, by path from the project's root.
std::map<std::string, names> includes_of_rooms() {
  std::map<std::string, names> found;
  for (const auto& [room, floor] : floors) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(PROJECT_ROOT) / room)) {
      const std::string ending = entry.path().extension().string();
      if (ending != ".h" && ending != ".cpp") continue;
      names& includes = found[fs::relative(entry.path(), PROJECT_ROOT).string()];
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

TEST(IncludeRules, FilesIncludeDownwardsOnly) {
  for (const auto& [file, includes] : includes_of_rooms()) {
    const std::string room = room_of(file);
    for (const std::string& include : includes) {
      const auto floor = floors.find(room_of(include));
      if (floor == floors.end() || floor->first == room) continue;
      EXPECT_LT(floor->second, floors.at(room)) << file << " includes " << include;
    }
  }
}

// The two controls know nothing of each other, and all that they show is their one header.
TEST(IncludeRules, AControlIsReachedThroughItsOneHeader) {
  const names shown{"controls/tree/ss_tree.h", "controls/tree/tree_filling.h",
                    "controls/tree/swallowed_keys.h", "controls/grid/flex_grid.h"};
  for (const auto& [file, includes] : includes_of_rooms()) {
    const std::string folder = fs::path(file).parent_path().string();
    for (const std::string& include : includes) {
      if (!include.starts_with("controls/") || include.starts_with(folder + "/")) continue;
      EXPECT_TRUE(shown.contains(include)) << file << " includes " << include;
    }
  }
}

bool is_toolkit(const std::string& include) {
  return include.size() > 1 && include[0] == 'Q' && std::isupper(include[1]);
}

TEST(IncludeRules, TheToolkitIsKnownToPlatformAndControlsAlone) {
  const names may{"platform", "controls", "examples"};
  for (const auto& [file, includes] : includes_of_rooms()) {
    if (may.contains(room_of(file))) continue;
    for (const std::string& include : includes) {
      EXPECT_FALSE(is_toolkit(include)) << file << " includes " << include;
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
