#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "paired_user.h"
#include "random_walk.h"

using namespace harness;
using texts = std::vector<std::string>;

namespace {

/// The other user, in a process of its own, does a whole command; gives what it is told.
texts do_all_of(const swept_command& command, const test_store& store) {
  QProcess process;
  process.start(QCoreApplication::applicationFilePath(),
                {"--do", QString::fromStdString(command.name),
                 QString::fromStdString(store.connect_string())});
  EXPECT_TRUE(process.waitForFinished(60'000));
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  texts told;
  for (const QByteArray& line : process.readAllStandardOutput().trimmed().split('\n')) {
    if (!line.isEmpty()) told.push_back(line.toStdString());
  }
  return told;
}

/// One user is held at a stop of its command while the other does a whole one. False if the command
/// has no stop of that number.
bool play_pair(const swept_command& held, int stop, const swept_command& other) {
  SCOPED_TRACE(held.name + ", held at stop " + std::to_string(stop) + ", against " + other.name);
  test_store store;
  store.run_script("common_rules.sql");
  ADODB::Connection conn;
  conn.Open(store.connect_string());
  paired_user user(held);
  texts told_to_other;
  bool held_was_done = false;
  bool other_was_done = false;
  user.stop = stop;
  user.at_stop = [&] {
    held_was_done = is_reached(held, conn);
    told_to_other = do_all_of(other, store);
    other_was_done = is_reached(other, conn);
    EXPECT_TRUE(other_was_done || !told_to_other.empty());
  };
  user.work(store.connect_string(), [&] { return is_reached(held, conn); });
  if (!user.was_stopped()) return false;
  EXPECT_EQ(shape_faults(store.connect_string()), texts{});
  // What the held user had finished may only go by a deletion.
  const bool was_deleted = held_was_done && other_was_done && other.takes_rows_away;
  EXPECT_TRUE(was_deleted || is_reached(held, conn) || !user.messages().empty() ||
              user.found_nothing());
  EXPECT_TRUE(!other_was_done || is_reached(other, conn) || user.was_asked());
  return true;
}

/// Every how many pairs one is played; scripts/long_walk plays all.
int stride() {
  const char* const wanted = std::getenv("VORLUMINE_PAIRS");
  return wanted ? std::stoi(wanted) : 37;
}

}  // namespace

TEST(PairsOfUsers, LeaveTheStoreInShapeAndAreToldTheTruth) {
  const auto commands = swept_commands();
  int number = 0;
  int played = 0;
  for (const swept_command& held : commands) {
    for (const swept_command& other : commands) {
      if (number++ % stride() != 0) continue;
      int stop = 1;
      while (play_pair(held, stop, other)) ++stop;
      played += stop - 1;
    }
  }
  std::printf("%d meetings\n", played);
}
