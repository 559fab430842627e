#include "random_walk.h"

#include <QWidget>
#include <algorithm>
#include <cstdio>

#include "random_user.h"
#include "tool/store_check.h"
#include "tree_difference.h"
#include "user.h"

namespace harness {
namespace {

// Long enough for deep trees, short enough that a failure is soon met again.
constexpr int turns_of_a_walk = 1000;

// The title of a field's value may be typed, and then names no field. A new value may be stored
// without content.
bool comes_of_use(const std::string& fault) {
  return fault.ends_with("there is no field \"\"") || fault.ends_with("a value without content");
}

std::vector<std::string> faults_of_users(const rule_store::store_rows& rows) {
  std::vector<std::string> faults = rule_store::faults_of(rows);
  std::erase_if(faults, comes_of_use);
  return faults;
}

void look_at(const std::string& connect_string, const random_user& user) {
  const rule_store::store_rows rows = rule_store::read_store(connect_string);
  const auto faults = faults_of_users(rows);
  if (!faults.empty()) user.give_up("the store is out of shape: " + faults.front());
  const std::string top = name_of(&top_window());
  std::string difference;
  if (top == "replaceForm") difference = title_tree_difference(rows, user.is_fresh());
  if (top == "replace_create") difference = rule_tree_difference(rows);
  if (!difference.empty()) user.give_up(difference);
}

}  // namespace

std::vector<std::string> shape_faults(const std::string& connect_string) {
  return faults_of_users(rule_store::read_store(connect_string));
}

void walk_and_look(std::uint64_t seed, int turns) {
  test_store store;
  store.load_sample();
  random_user user(seed);
  user.look = [&] { look_at(store.connect_string(), user); };
  user.walk(store.connect_string(), turns);
}

int walk_command(const std::vector<std::string>& arguments) {
  const int turns = std::stoi(arguments.at(0));
  std::uint64_t seed = std::stoull(arguments.at(1));
  if (arguments.size() > 2) {
    random_user user(seed);
    user.tell = [](const std::string& action) {
      std::puts(action.c_str());
      std::fflush(stdout);
    };
    user.walk(arguments.at(2), turns);
    return 0;
  }
  for (int done = 0; done < turns; done += turns_of_a_walk, ++seed) {
    walk_and_look(seed, std::min(turns_of_a_walk, turns - done));
    std::printf("%d turns, the last with seed %llu\n", std::min(turns, done + turns_of_a_walk),
                static_cast<unsigned long long>(seed));
    std::fflush(stdout);
  }
  return 0;
}

}  // namespace harness
