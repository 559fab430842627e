#include <gtest/gtest.h>

#include <array>
#include <map>
#include <utility>

#include "store/key_counters.h"
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
  EXPECT_THROW(connection.Execute(sql("select '<a>'", {std::string("a\0b", 3)})), Error);
}

TEST_F(PostgresqlEngine, PreparesAnewWhatTheServerHasForgotten) {
  advance_number(connection, "replace");
  connection.Execute("deallocate all");
  advance_number(connection, "replace");
  EXPECT_EQ(last_number(connection, "replace"), 2);
}

// As in a session of a pool, in which another program has prepared statements before.
TEST_F(PostgresqlEngine, SharesPreparedStatementsThatStandForTheSameText) {
  constexpr words text = "select '<a>' as shared";
  connection.Execute(sql(text, {"a"}));
  const std::string prepare = value_of(
                                  "select 'prepare '||name||' as '||statement from "
                                  "pg_prepared_statements where statement like '%as shared'")
                                  .text();
  cut_the_session();
  EXPECT_THROW(connection.Execute("select 1"), Error);
  connection.Execute(prepare);
  EXPECT_EQ(value_of(sql(text, {"b"})), Value(std::string("b")));
}

TEST_F(PostgresqlEngine, ConnectsAnewAfterTheCommandThatMetTheLoss) {
  advance_number(connection, "replace");
  cut_the_session();
  const Error failure = failure_of([&] { advance_number(connection, "replace"); });
  EXPECT_EQ(failure.kind(), failure_kind::lost_connection);
  EXPECT_TRUE(holds(failure, "terminating connection due to administrator command"))
      << failure.what();
  EXPECT_EQ(store.value("select replace from seqno"), "1");
  advance_number(connection, "replace");
  EXPECT_EQ(last_number(connection, "replace"), 2);

  cut_the_session();
  EXPECT_EQ(failure_of([&] { connection.BeginTrans(); }).kind(), failure_kind::lost_connection);
  EXPECT_FALSE(connection.in_transaction());
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
  EXPECT_THROW(connection.Execute("select 1"), Error);
  let_in("false");
  for (int i = 0; i < 2; ++i)
    EXPECT_TRUE(
        holds(failure_of([&] { connection.Execute("select 1"); }), "not currently accepting"));
  let_in("true");
  EXPECT_EQ(last_number(connection, "replace"), 0);
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

}  // namespace
