#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

#include "paired_user.h"
#include "random_walk.h"

using namespace harness;
using texts = std::vector<std::string>;

namespace {

/// One user, held at a stop of its command, from 1, while another does a whole one.
struct meeting {
  const swept_command& held;
  int stop;
  const swept_command& other;
};

/// A command in a process of its own, as --do takes it; ends with it. What the held user holds may
/// stay held: whoever needs it waits a second, not the usual five.
std::unique_ptr<QProcess> done_by_process(const swept_command& command, const test_store& store,
                                          const QStringList& further = {}) {
  auto process = std::make_unique<QProcess>();
  process->start(QCoreApplication::applicationFilePath(),
                 QStringList{"--do", QString::fromStdString(command.name),
                             QString::fromStdString(store.connect_string()) + ";LockTimeout=1"} +
                     further);
  EXPECT_TRUE(process->waitForFinished(120'000));
  EXPECT_TRUE(was_killed(*process) || process->exitCode() == 0)
      << process->readAllStandardError().toStdString();
  return process;
}

/// What the users in the process were told.
texts told_by(QProcess& process) {
  texts told;
  for (const QByteArray& line : process.readAllStandardOutput().trimmed().split('\n')) {
    if (!line.isEmpty()) told.push_back(line.toStdString());
  }
  return told;
}

/// How often the goal is reached.
int times_done(const swept_command& command, ADODB::Connection& conn) {
  const ADODB::Recordset found = conn.Execute(command.goal);
  return found.eof() ? 0 : static_cast<int>(found.Fields().Item(0).Value().number());
}

/// Each of these plays a meeting; false if the command has no stop of that number.
bool play(const meeting& meeting, const test_store& store, store_faults& faults) {
  const swept_command& held = meeting.held;
  const swept_command& other = meeting.other;
  ADODB::Connection conn;
  conn.Open(store.connect_string());
  paired_user user(held);
  texts told_to_other;
  bool held_was_done = false;
  bool other_was_done = false;
  user.stop = meeting.stop;
  user.at_stop = [&] {
    held_was_done = is_reached(held, conn);
    told_to_other = told_by(*done_by_process(other, store));
    other_was_done = is_reached(other, conn);
    EXPECT_TRUE(other_was_done || !told_to_other.empty());
    faults.fail(1);
  };
  user.work(faults.connect_string(store), [&] { return is_reached(held, conn); });
  if (!user.was_stopped()) return false;
  // What the held user had finished may only go by a deletion.
  const bool was_deleted = held_was_done && other_was_done && other.takes_rows_away;
  EXPECT_TRUE(was_deleted || is_reached(held, conn) || !user.messages().empty() ||
              user.found_nothing());
  EXPECT_TRUE(!other_was_done || is_reached(other, conn) || user.was_asked());
  const bool may_stand_twice = held.goal == other.goal || other.name == "copy";
  EXPECT_TRUE(may_stand_twice || times_done(held, conn) <= 1);
  return true;
}

bool play_untroubled(const meeting& meeting, const test_store& store) {
  store_faults none;
  return play(meeting, store, none);
}

bool play_with_lost_commit(const meeting& meeting, const test_store& store) {
  return play(meeting, store, *fault_on_the_wire(store, wire_fault::commit_lost));
}

bool kill_both(const meeting& meeting, const test_store& store) {
  const auto& [held, stop, other] = meeting;
  const auto users =
      done_by_process(held, store, {QString::number(stop), QString::fromStdString(other.name)});
  if (!was_killed(*users)) return false;
  ADODB::Connection conn;
  conn.Open(store.connect_string());
  EXPECT_TRUE(is_reached(other, conn) || !told_by(*users).empty());
  return true;
}

/// Every how many pairs one is played; scripts/long_walk plays all.
int stride() {
  const char* const wanted = std::getenv("VORLUMINE_PAIRS");
  return wanted ? std::stoi(wanted) : 37;
}

void for_each_pair(const std::function<bool(const meeting&, const test_store&)>& play) {
  const auto commands = swept_commands();
  int number = 0;
  int played = 0;
  const auto meet = [&](const meeting& meeting) {
    SCOPED_TRACE(meeting.held.name + ", held at stop " + std::to_string(meeting.stop) +
                 ", against " + meeting.other.name);
    test_store store;
    store.run_script("common_rules.sql");
    if (!play(meeting, store)) return false;
    EXPECT_EQ(shape_faults(store.connect_string()), texts{});
    ++played;
    return true;
  };
  for (const swept_command& held : commands) {
    for (const swept_command& other : commands) {
      if (number++ % stride() != 0) continue;
      for (int stop = 1; meet({held, stop, other}); ++stop) continue;
    }
  }
  std::printf("%d meetings\n", played);
}

}  // namespace

TEST(PairsOfUsers, LeaveTheStoreInShapeAndAreToldTheTruth) {
  for_each_pair(play_untroubled);
}

TEST(PairsOfUsers, AreKilledBothAtEachStop) {
  for_each_pair(kill_both);
}

TEST(PostgresqlPairsOfUsers, MakeNothingTwiceWhenACommitsAnswerIsLost) {
  for_each_pair(play_with_lost_commit);
}
