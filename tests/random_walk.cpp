#include "random_walk.h"

#include <algorithm>
#include <cstdio>

#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "random_user.h"
#include "tool/store_check.h"
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

using lines = std::vector<std::string>;
using rule_store::store_rows;

std::string line(std::size_t depth, rule_store::key key, const std::string& text) {
  return std::string(2 * depth, ' ') + std::to_string(key) + " " + text;
}

/// Rules without their texts.
void add_shown(const ta_vorlumine::Node& node, std::size_t depth, bool rules, bool in_order,
               lines& found) {
  found.push_back(line(depth, std::stoi(node.Key()), rules ? "" : node.Text()));
  std::vector<ta_vorlumine::Node> children;
  for (auto child = node.Child(); !child.is_empty(); child = child.Next())
    children.push_back(child);
  if (!in_order)
    std::ranges::sort(children, {}, [](const auto& child) { return std::stoi(child.Key()); });
  for (const auto& child : children) add_shown(child, depth + 1, rules, in_order, found);
}

void add_titles(const store_rows& rows, rule_store::key parent, std::size_t depth, lines& wanted) {
  for (const auto& row : rows.titles) {
    if (row.parent != parent) continue;
    wanted.push_back(line(depth, row.no, row.title.is_null() ? "NULL" : row.title.text()));
    add_titles(rows, row.no, depth + 1, wanted);
  }
}

void add_rules(const store_rows& rows, rule_store::key parent, std::size_t depth, lines& wanted) {
  const auto definition = platform::form<ta_vorlumine::replaceForm>().f_replace_no;
  for (const auto& row : rows.children(definition, parent)) {
    wanted.push_back(line(depth, row.no, ""));
    add_rules(rows, row.no, depth + 1, wanted);
  }
}

void compare_trees(const store_rows& rows, const random_user& user) {
  const std::string top = name_of(&top_window());
  if (top != "replaceForm" && top != "replace_create") return;
  const bool rules = top == "replace_create";
  auto& tree = rules ? platform::form<ta_vorlumine::replace_create>().SSTree1
                     : platform::form<ta_vorlumine::replaceForm>().SSTree1;
  lines shown;
  lines wanted{line(0, 0, rules ? "" : "条件設定")};
  add_shown(tree.Nodes.Item("0"), 0, rules, rules || user.is_fresh(), shown);
  rules ? add_rules(rows, 0, 1, wanted) : add_titles(rows, 0, 1, wanted);
  const auto [is, should] = std::ranges::mismatch(shown, wanted);
  if (is != shown.end() || should != wanted.end())
    user.give_up("the tree shows " + (is == shown.end() ? "nothing" : *is) + ", the store holds " +
                 (should == wanted.end() ? "nothing" : *should));
}

void look_at(const std::string& connect_string, const random_user& user) {
  const store_rows rows = rule_store::read_store(connect_string);
  const auto faults = faults_of_users(rows);
  if (!faults.empty()) user.give_up("the store is out of shape: " + faults.front());
  compare_trees(rows, user);
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
