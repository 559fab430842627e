#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <algorithm>
#include <random>

#include "harness.h"
#include "walks.h"

using namespace harness;
using lines = std::vector<std::string>;

namespace {

/// Another user: this program as a process of its own that walks over the store.
std::unique_ptr<QProcess> another_user(const test_store& store, std::uint64_t seed, int deeds) {
  auto process = std::make_unique<QProcess>();
  process->start(QCoreApplication::applicationFilePath(),
                 {"--walk", QString::number(deeds), QString::number(seed),
                  QString::fromStdString(store.connect_string())});
  return process;
}

std::string last_deed(QProcess& process) {
  const QByteArrayList deeds = process.readAllStandardOutput().trimmed().split('\n');
  return deeds.last().toStdString();
}

bool is_of_counters(const std::string& fault) {
  return fault.starts_with("seqno");
}

/// What a command that ends in the middle may leave: a deletion and a copy are many statements, and
/// all others write one row and then the counter. A condition dialog is one transaction.
bool may_remain(const std::string& fault, const std::string& deed) {
  const bool has_many = deed == "reads \"削除してもよろしいですか\"" || deed == "presses copy";
  return is_of_counters(fault) || has_many;
}

int kills() {
  const char* wanted = std::getenv("VORLUMINE_KILLS");
  return wanted ? std::stoi(wanted) : 40;
}

}  // namespace

TEST(Walk, StoreAndWindowsStayInStep) {
  walk_and_look(1, 300);
}

TEST(Walk, AKilledUserLeavesNothingHalfStoredThatIsOneDeed) {
  std::mt19937 random(1);
  std::unique_ptr<test_store> store;
  for (int kill = 0; kill < kills(); ++kill) {
    if (!store) {
      store = std::make_unique<test_store>();
      store->load_sample();
    }
    const auto user = another_user(*store, 1000 + kill, 100'000);
    ASSERT_TRUE(user->waitForReadyRead(20'000)) << user->readAllStandardError().toStdString();
    QThread::msleep(random() % 200);
    ASSERT_EQ(user->state(), QProcess::Running) << user->readAllStandardError().toStdString();
    user->kill();
    user->waitForFinished();
    const std::string deed = last_deed(*user);
    for (const std::string& fault : shape_faults(store->connect_string())) {
      EXPECT_TRUE(may_remain(fault, deed))
          << "kill " << kill << " in \"" << deed << "\": " << fault;
      // Copies of a half-deleted definition would be told as new faults.
      if (!is_of_counters(fault)) store.reset();
      if (!store) break;
    }
  }
}

TEST(Walk, TwoUsersShareAStore) {
  for (int round = 0; round < 3; ++round) {
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
