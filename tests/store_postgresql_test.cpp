#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <map>
#include <utility>

#include "store/connection_string.h"
#include "store/key_counters.h"
#include "store/postgresql_session.h"
#include "store/sql.h"
#include "store_failure.h"
#include "test_store.h"
#include "tool/store_maker.h"

using namespace ADODB;

namespace {

class PostgresqlEngine : public testing::Test {
 protected:
  PostgresqlEngine() { connection.Open(store.connect_string()); }

  template <class Statement>
  [[nodiscard]] Value value_of(const Statement& statement) {
    return connection.Execute(statement).Fields().Item(0).Value();
  }

  /// Ends the session of `connection` on the server, as a restart of the server would.
  void cut_the_session() {
    store.run(sql("select pg_terminate_backend(<pid>,5000)",
                  {value_of("select pg_backend_pid()").number()}));
  }

  harness::test_store store;
  Connection connection;
};

bool holds(const Error& failure, const std::string& text) {
  return std::string(failure.what()).find(text) != std::string::npos;
}

TEST_F(PostgresqlEngine, GivesEveryTypeItsKindOfValue) {
  const std::vector<std::pair<const char*, Value>> kinds = {
      {"count(*)", Value(std::int64_t{1})},
      {"-2147483649", Value(std::int64_t{-2147483649})},
      {"100.00", Value(std::int64_t{100})},
      {"1.50", Value(std::string("1.5"))},
      {"98765432109876543210", Value(std::string("98765432109876543210"))},
      {"0.1::float8", Value(0.1)},
      {"2=1+1", Value(true)},
      {"max(null)", Value()},
      {"'1.0'", Value(std::string("1.0"))},
      {"$$it's 5$$", Value(std::string("it's 5"))},
      {"'2005-02-28'::date", Value(std::string("2005-02-28"))}};
  for (const auto& [expression, value] : kinds)
    EXPECT_EQ(value_of(std::string("select ") + expression), value) << expression;
}

TEST_F(PostgresqlEngine, RefusesWhatTheServerWouldReadOtherwise) {
  EXPECT_THROW(connection.Execute("select 1 where 1=$1"), Error);
  EXPECT_THROW(connection.Execute(std::string("select 'a\0b'", 12)), Error);
  const statement look_up = look_up_of("replace");
  const statement bad = sql("select '<a>'", {std::string("a\0b", 3)});
  EXPECT_THROW(connection.Execute(bad), Error);
  int results = 0;
  const auto count = [&](const Recordset&) { ++results; };
  EXPECT_THROW(connection.ExecuteAll(std::array{look_up, bad, look_up}, count), Error);
  EXPECT_EQ(results, 1);
}

TEST_F(PostgresqlEngine, PreparesAnewWhatTheServerHasForgotten) {
  advance_number(connection, "replace");
  connection.Execute("deallocate all");
  advance_number(connection, "replace");
  EXPECT_EQ(last_number(connection, "replace"), 2);
  connection.Execute("deallocate all");
  const auto found = connection.ExecuteAll(
      std::array{sql("select 5 as n", {}), look_up_of("replace"), look_up_of("replace_m")});
  EXPECT_EQ(last_number(found.at(1)), 2);
}

TEST_F(PostgresqlEngine, ConnectsAnewWithTheCommandThatFindsTheLoss) {
  advance_number(connection, "replace");
  cut_the_session();
  advance_number(connection, "replace");
  EXPECT_EQ(last_number(connection, "replace"), 2);

  const statement end = sql("select pg_terminate_backend(pg_backend_pid())", {});
  const std::array statements{look_up_of("replace"), end, look_up_of("replace")};
  EXPECT_EQ(failure_of([&] { connection.ExecuteAll(statements); }).kind(),
            failure_kind::lost_connection);
  EXPECT_EQ(last_number(connection, "replace"), 2);

  cut_the_session();
  connection.BeginTrans();
  advance_number(connection, "replace");
  connection.CommitTrans();
  EXPECT_EQ(store.value("select replace from seqno"), "3");
}

TEST_F(PostgresqlEngine, RunsNothingBetweenALossInATransactionAndItsRollback) {
  connection.BeginTrans();
  advance_number(connection, "replace");
  cut_the_session();
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(failure_of([&] { advance_number(connection, "replace"); }).kind(),
              failure_kind::lost_connection);
  EXPECT_EQ(failure_of([&] { connection.CommitTrans(); }).kind(), failure_kind::lost_connection);
  connection.RollbackTrans();
  EXPECT_EQ(store.value("select replace from seqno"), "0");
  advance_number(connection, "replace");

  connection.BeginTrans();
  cut_the_session();
  connection.RollbackTrans();
  connection.BeginTrans();
  EXPECT_EQ(last_number(connection, "replace"), 1);
}

TEST_F(PostgresqlEngine, TriesAgainAtEachCommandWhileTheServerIsOutOfReach) {
  const std::string name = value_of("select current_database()").text();
  const auto let_in = [&](const std::string& answer) {
    harness::run_on_server("alter database " + name + " allow_connections " + answer);
  };
  cut_the_session();
  let_in("false");
  for (int i = 0; i < 2; ++i) {
    const Error failure = failure_of([&] { connection.Execute("select 1"); });
    EXPECT_EQ(failure.kind(), failure_kind::lost_connection);
    EXPECT_TRUE(holds(failure, "not currently accepting")) << failure.what();
  }
  let_in("true");
  EXPECT_EQ(last_number(connection, "replace"), 0);
}

TEST_F(PostgresqlEngine, GivesUpAtItsLimitsAndNothingIsStoredLater) {
  store.run(
      "create function slow() returns trigger language plpgsql as $$ begin perform "
      "pg_sleep(4); return new; end $$");
  store.run("create trigger slow before update on seqno for each row execute function slow()");
  Connection hurried;
  hurried.Open(store.connect_string() + ";StatementTimeout=1;LockTimeout=2");
  EXPECT_EQ(failure_of([&] { advance_number(hurried, "replace"); }).kind(), failure_kind::busy);
  store.run("drop trigger slow on seqno");

  // A process of the server that stands still is as good as one that can't be reached.
  const auto process = static_cast<pid_t>(
      hurried.Execute("select pg_backend_pid()").Fields().Item(0).Value().number());
  hurried.BeginTrans();
  ::kill(process, SIGSTOP);
  EXPECT_EQ(failure_of([&] { advance_number(hurried, "replace"); }).kind(),
            failure_kind::lost_connection);
  ::kill(process, SIGCONT);
  hurried.RollbackTrans();
  EXPECT_EQ(last_number(hurried, "replace"), 0);
}

// The server would take the COMMIT and roll back without a word.
TEST_F(PostgresqlEngine, NeverTakesARolledBackTransactionForAStoredOne) {
  connection.BeginTrans();
  advance_number(connection, "replace");
  EXPECT_THROW(connection.Execute("select * from nowhere"), Error);
  EXPECT_TRUE(holds(failure_of([&] { advance_number(connection, "replace"); }), "taken back"));
  EXPECT_TRUE(holds(failure_of([&] { connection.CommitTrans(); }), "taken back"));
  connection.RollbackTrans();
  EXPECT_EQ(last_number(connection, "replace"), 0);

  store.run("alter table field add unique (attr) deferrable initially deferred");
  connection.BeginTrans();
  connection.Execute("insert into field values('a','a','T'),('b','b','T')");
  EXPECT_EQ(failure_of([&] { connection.CommitTrans(); }).kind(), failure_kind::refused_by_key);
  EXPECT_THROW(advance_number(connection, "replace"), Error);
  connection.RollbackTrans();
  EXPECT_EQ(store.value("select count(*) from field"), "0");
}

TEST_F(PostgresqlEngine, TellsWhyItCannotConnectButNotThePassword) {
  store.run("drop role if exists vorlumine_guest");
  store.run("create role vorlumine_guest login password 'right-secret'");
  const auto changed = [](const std::string& key, const std::string& value) {
    std::map<std::string, std::string> changes = {{"uid", "vorlumine_guest"},
                                                  {"pwd", "right-secret"}};
    changes[key] = value;
    return harness::server_connect_string(changes);
  };
  for (const auto& [key, value, reason] : std::vector<std::array<std::string, 3>>{
           {"pwd", "wrong-secret", "password authentication failed"},
           {"database", "nowhere", "\"nowhere\" does not exist"},
           {"server", store.folder().string(), "No such file"},
           {"port", "none", "port"}}) {
    Connection refused;
    const std::string settings = changed(key, value);
    const Error failure = failure_of([&] { refused.Open(settings); });
    EXPECT_FALSE(refused.is_open());
    EXPECT_TRUE(holds(failure, reason) && !holds(failure, "secret")) << failure.what();
  }
  Connection allowed;
  allowed.Open(changed("database", "postgres"));
  EXPECT_THROW(allowed.Execute("select * from pg_authid"), Error);
  allowed.Close();
  store.run("drop role vorlumine_guest");
}

TEST_F(PostgresqlEngine, MakesAStoreOnlyWhereNoneOfItsTablesIs) {
  EXPECT_TRUE(holds(failure_of([&] {
                      rule_store::make_store(store.connect_string(), rule_store::content::sample);
                    }),
                    "already exists"));
  EXPECT_EQ(store.value("select count(*) from replace"), "0");
  store.run("drop table replace");
  EXPECT_THROW(rule_store::make_store(store.connect_string(), rule_store::content::sample), Error);
  EXPECT_THROW(store.run("select * from replace"), Error);
  for (const char* table : {"replace_m", "replace_cond", "field", "seqno"})
    store.run(std::string("drop table ") + table);
  rule_store::make_store(store.connect_string(), rule_store::content::sample);
  EXPECT_EQ(store.value("select count(*) from replace"), store.value("select replace from seqno"));
}

// Only for scripts/server_pool. The other user of the pool is a client that sets nothing.
TEST_F(PostgresqlEngine, PoolLendsOutNothingThatThisProgramSets) {
  const std::string look_up =
      "select current_setting('enable_seqscan')||' '||count(*) from "
      "pg_prepared_statements";
  postgresql_session other(read_connection_string(store.connect_string()));
  for (int i = 0; i < 20; ++i) {
    advance_number(connection, "replace");
    EXPECT_EQ(value_of(look_up).text(), "off 0");
    connection.BeginTrans();
    EXPECT_EQ(value_of(look_up).text(), "off 0");
    connection.CommitTrans();
    EXPECT_NO_THROW(
        other.run("do $$ begin if current_setting('enable_seqscan')='off' then raise 'leaked'; end "
                  "if; end $$"));
  }
  Connection of_statements;
  EXPECT_TRUE(
      holds(failure_of([&] {
              of_statements.Open(harness::server_connect_string(
                  {{"database", "of_statements"}, {"server", std::getenv("VORLUMINE_TEST_POOL")}}));
            }),
            "keeps no transaction together"));
}

}  // namespace
