#include <gtest/gtest.h>

#include <algorithm>

#include "fault_trial.h"

using namespace harness;

namespace {

struct lag {
  std::string command;
  std::string counters;    ///< as a crash leaves them: a row is there, and not counted
  std::string definition;  ///< whose rule rows the command adds to
};

const std::vector<lag> lags = {{"new folder", "replace=29", "1"},
                               {"new definition", "replace=31", "1"},
                               {"copy", "replace=31,replace_m=12,replace_cond=0", "34"},
                               {"new field", "replace_m=12", "1"},
                               {"new value", "replace_m=12", "1"},
                               {"new condition", "replace_m=12,replace_cond=0", "1"},
                               {"first date condition", "replace_m=29,replace_cond=0", "30"},
                               {"first yes/no condition", "replace_m=31,replace_cond=0", "32"}};

}  // namespace

TEST(Counters, BehindTheirTablesHealWithTheNextCommand) {
  const trouble none{"none", [](test_store&) { return std::make_unique<store_faults>(); }};
  const auto commands = swept_commands();
  std::optional<test_store> store;
  for (const lag& lag : lags) {
    SCOPED_TRACE(lag.command);
    const auto& command = *std::ranges::find(commands, lag.command, &swept_command::name);
    fault_trial untroubled(store, none);
    untroubled.play_command(command, 0);
    fault_trial behind(store, none);
    store->run("update seqno set " + lag.counters);
    behind.play_command(command, 0);
    EXPECT_EQ(behind.way, untroubled.way);
    EXPECT_EQ(behind.after.size(), untroubled.after.size());
    EXPECT_EQ(behind.shape, std::vector<std::string>());
    const std::string of_definition = " from replace_m where replace_no=" + lag.definition;
    EXPECT_EQ(
        store->value("select 1 from seqno where replace>=(select max(replace_no) from replace)"
                     " and replace_m>=(select max(replace_m_no)" +
                     of_definition +
                     ")"
                     " and replace_cond>=(select max(replace_cond_no) from replace_cond)"),
        "1");
  }
}
