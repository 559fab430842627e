#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <memory>

#include "fault_trial.h"

using namespace harness;
using rows = std::vector<std::string>;

namespace {

bool holds_all(const rows& some, const rows& all) {
  return std::ranges::includes(all, some);
}

void judge(const swept_command& command, const fault_trial& trial, const rows& wanted) {
  // The selection goes on past what it cannot read, and what a lost connection held open is taken
  // back in any case.
  const bool may_be_silent =
      trial.failed.find("select KIND,comment") != std::string::npos || trial.failed == "ROLLBACK";
  EXPECT_TRUE(trial.was_told || may_be_silent);
  EXPECT_FALSE(trial.was_deceived);
  rows kept;
  std::ranges::set_intersection(trial.before, wanted, std::back_inserter(kept));
  for (const rows* found : {&trial.after_failure, &trial.after}) {
    if (found->empty()) continue;  // the command had ended
    EXPECT_TRUE(holds_all(kept, *found));
    EXPECT_TRUE(!command.is_whole || *found == trial.before || *found == wanted);
  }
  if (!trial.after_failure.empty()) {
    EXPECT_LE(trial.after_failure.size(), std::max(trial.before.size(), wanted.size()));
  }
}

/// What a user gets who has tried again. What can't be written can't be taken back either: such a
/// copy stays as far as it came, under its own key.
void judge_end(const swept_command& command, const fault_trial& trial, const rows& wanted,
               bool hinders_repair) {
  const auto is_left_copy = [](const std::string& fault) {
    return fault.find(" 34/") != fault.npos;
  };
  if (command.takes_rows_away) {
    EXPECT_TRUE(holds_all(wanted, trial.after));
  } else if (hinders_repair && command.name == "copy") {
    EXPECT_GE(trial.after.size(), wanted.size());
    EXPECT_TRUE(std::ranges::all_of(trial.shape, is_left_copy));
  } else {
    // Numbers that were drawn for the failed try may be gone.
    EXPECT_EQ(trial.after.size(), wanted.size());
    EXPECT_EQ(trial.shape, rows{});
  }
}

std::string name_of(const swept_command& command, const trouble& trouble) {
  std::string name = command.name + " " + trouble.name;
  std::erase_if(name, [](char c) { return !std::isalnum(c) && c != ' '; });
  std::ranges::replace(name, ' ', '_');
  return name;
}

std::vector<trouble> troubles_on_sqlite() {
  return {{"statement refused", refused_statement},
          {"disk full", [](test_store&) { return full_disk(); }, true}};
}

trouble on_the_wire(const std::string& name, wire_fault kind) {
  return {name, [kind](test_store& store) { return fault_on_the_wire(store, kind); },
          kind == wire_fault::away, kind == wire_fault::lost_after};
}

std::vector<trouble> troubles_on_a_server() {
  return {on_the_wire("request refused", wire_fault::refused),
          on_the_wire("lost before", wire_fault::lost_before),
          on_the_wire("lost after", wire_fault::lost_after),
          on_the_wire("server away", wire_fault::away)};
}

}  // namespace

class FaultSweep : public testing::TestWithParam<std::tuple<swept_command, trouble>> {};

TEST_P(FaultSweep, EachOccasionInTurn) {
  const auto& [command, trouble] = GetParam();
  std::optional<test_store> store;
  fault_trial untroubled(store, trouble);
  untroubled.play_command(command, 0);
  const rows& wanted = untroubled.after;
  int tried = 0;
  for (int number = 1;; ++number) {
    fault_trial patient(store, trouble);
    patient.play_command(command, number);
    if (!patient.was_reached) break;
    if (patient.failed.empty()) continue;
    SCOPED_TRACE(std::to_string(number) + ": " + patient.failed);
    ++tried;
    judge(command, patient, wanted);
    judge_end(command, patient, wanted, trouble.lasts || trouble.loses_answers);
    if (!trouble.lasts) continue;
    fault_trial leaving(store, trouble);
    leaving.play_command(command, number, false);
    judge(command, leaving, wanted);
  }
  EXPECT_GT(tried, 0);
  std::printf("%s, %s: %d tried\n", command.name.c_str(), trouble.name.c_str(), tried);
}

constexpr auto sweep_name = [](const auto& test) {
  return name_of(std::get<0>(test.param), std::get<1>(test.param));
};
INSTANTIATE_TEST_SUITE_P(Sqlite, FaultSweep,
                         testing::Combine(testing::ValuesIn(swept_commands()),
                                          testing::ValuesIn(troubles_on_sqlite())),
                         sweep_name);
INSTANTIATE_TEST_SUITE_P(Postgresql, FaultSweep,
                         testing::Combine(testing::ValuesIn(swept_commands()),
                                          testing::ValuesIn(troubles_on_a_server())),
                         sweep_name);
