#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <cstdlib>
#include <memory>
#include <random>

#include "random_walk.h"

using namespace harness;
using lines = std::vector<std::string>;

namespace {

/// Another user: this program as a process of its own that walks over the store.
std::unique_ptr<QProcess> another_user(const test_store& store, std::uint64_t seed, int turns) {
  auto process = std::make_unique<QProcess>();
  process->start(QCoreApplication::applicationFilePath(),
                 {"--walk", QString::number(turns), QString::number(seed),
                  QString::fromStdString(store.connect_string())});
  return process;
}

int wanted(const char* variable, int otherwise) {
  const char* wanted = std::getenv(variable);
  return wanted ? std::stoi(wanted) : otherwise;
}

}  // namespace

TEST(Walk, StoreAndWindowsStayInStep) {
  walk_and_look(1, 300);
}

// A command is one transaction: whatever it was doing, nothing of it is left, or all.
TEST(Walk, AKilledUserLeavesNothingHalfStored) {
  std::mt19937 random(1);
  test_store store;
  store.load_sample();
  for (int kill = 0; kill < wanted("VORLUMINE_KILLS", 40); ++kill) {
    const auto user = another_user(store, 1000 + kill, 100'000);
    ASSERT_TRUE(user->waitForReadyRead(20'000)) << user->readAllStandardError().toStdString();
    QThread::msleep(random() % 200);
    ASSERT_EQ(user->state(), QProcess::Running) << user->readAllStandardError().toStdString();
    user->kill();
    user->waitForFinished();
    ASSERT_EQ(shape_faults(store.connect_string()), lines{})
        << "kill " << kill << " after\n"
        << user->readAllStandardOutput().right(300).toStdString();
  }
}

TEST(Walk, TwoUsersShareAStore) {
  for (int round = 0; round < wanted("VORLUMINE_ROUNDS", 3); ++round) {
    test_store store;
    store.load_sample();
    const auto one = another_user(store, 1 + 2 * round, 250);
    const auto other = another_user(store, 2 + 2 * round, 250);
    for (QProcess* user : {one.get(), other.get()}) {
      EXPECT_TRUE(user->waitForFinished(60'000));
      EXPECT_EQ(user->exitCode(), 0) << user->readAllStandardError().toStdString();
    }
    EXPECT_EQ(shape_faults(store.connect_string()), lines{});
  }
}
