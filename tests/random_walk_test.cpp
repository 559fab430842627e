#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
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

std::string last_action(QProcess& process) {
  const QByteArrayList actions = process.readAllStandardOutput().trimmed().split('\n');
  return actions.last().toStdString();
}

bool is_of_counters(const std::string& fault) {
  return fault.starts_with("seqno");
}

/// The definition whose rule row or line the fault is in, empty for any other.
std::string definition_of(const std::string& fault) {
  if (!fault.starts_with("replace_m ") && !fault.starts_with("replace_cond ")) return {};
  const std::size_t number = fault.find(' ') + 1;
  return fault.substr(number, fault.find('/') - number);
}

/// Takes out what a command that ends in the middle may leave. A condition dialog is one
/// transaction, and most commands write one row and then the counter. A copy is many statements,
/// all under its own key, the last. A deletion is many: of definitions and folders from the top, so
/// that what is left is shown no more, of rules within one definition.
void take_out_remains(lines& faults, const std::string& action, test_store& store) {
  std::erase_if(faults, is_of_counters);
  const lines shown = store.rows(
      "with recursive shown(no) as (select replace_no from replace where p_replace_no=0 union "
      "select replace_no from replace join shown on p_replace_no=no) select no from shown");
  const std::string last = store.value("select max(replace_no) from replace");
  std::string edited;
  std::erase_if(faults, [&](const std::string& fault) {
    const std::string definition = definition_of(fault);
    if (action == "presses copy") return definition == last;
    if (action != "reads \"削除してもよろしいですか\"") return false;
    if (definition.empty()) return fault.ends_with("does not exist");
    if (std::ranges::find(shown, definition) == shown.end()) return true;
    if (edited.empty()) edited = definition;
    return definition == edited;
  });
}

int wanted(const char* variable, int otherwise) {
  const char* wanted = std::getenv(variable);
  return wanted ? std::stoi(wanted) : otherwise;
}

}  // namespace

TEST(Walk, StoreAndWindowsStayInStep) {
  walk_and_look(1, 300);
}

TEST(Walk, AKilledUserLeavesNothingHalfStoredThatIsOneDeed) {
  std::mt19937 random(1);
  std::unique_ptr<test_store> store;
  int halves = 0;
  for (int kill = 0; kill < wanted("VORLUMINE_KILLS", 40); ++kill) {
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
    const std::string action = last_action(*user);
    lines faults = shape_faults(store->connect_string());
    const bool is_half = !std::ranges::all_of(faults, is_of_counters);
    take_out_remains(faults, action, *store);
    EXPECT_EQ(faults, lines{}) << "kill " << kill << " in \"" << action << "\"";
    // Copies of a half-deleted definition would be told as new faults.
    if (is_half) store.reset();
    halves += is_half ? 1 : 0;
  }
  std::printf("%d kills left something half done\n", halves);
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
