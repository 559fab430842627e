#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <map>

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

TEST_F(PostgresqlEngine, LosesNoDigitOfANumber) {
  constexpr std::array<words, 2> inserts = {
      "insert into replace_cond(replace_no,replace_cond_no,sno,n_f_val) values(1,1,1,'<n>')",
      "insert into replace_cond(replace_no,replace_cond_no,sno,n_f_val) values(1,1,1,<n>)"};
  for (const words& insert : inserts) {
    const auto stored = [&](const char* number) {
      connection.Execute("delete from replace_cond");
      connection.Execute(sql(insert, {number}));
      return value_of("select n_f_val from replace_cond");
    };
    for (const char* number : {"12345678901234567890.1234567890123", "-0.000000000000000000001",
                               "98765432109876543210", "-123.456"})
      EXPECT_EQ(stored(number), Value(std::string(number)));
    EXPECT_EQ(stored("1.50"), Value(std::string("1.5")));
    EXPECT_EQ(stored("100.00"), Value(std::int64_t{100}));
    EXPECT_EQ(stored("-2147483649"), Value(std::int64_t{-2147483649}));
  }
}

TEST_F(PostgresqlEngine, GivesEveryTypeItsKindOfValue) {
  connection.Execute("insert into replace(replace_no) values(7)");
  EXPECT_EQ(value_of("select count(*) from replace"), Value(std::int64_t{1}));
  EXPECT_EQ(value_of("select max(replace_no) from replace"), Value(std::int64_t{7}));
  EXPECT_EQ(value_of("select max(sno) from replace_cond"), Value());
  EXPECT_EQ(value_of("select 0.1::float8"), Value(0.1));
  EXPECT_EQ(value_of("select 2=1+1"), Value(true));
  EXPECT_EQ(value_of("select '1.0'"), Value(std::string("1.0")));
  EXPECT_EQ(value_of("select '2005-02-28'::date"), Value(std::string("2005-02-28")));
}

// A parameter must come out as a literal would have where its place stands.
TEST_F(PostgresqlEngine, TakesEveryFormInWhichValuesAreWritten) {
  connection.Execute(
      sql("insert into replace_m(replace_no,replace_m_no,replace_cond_type,p_replace_m_no) "
          "values(<a>,'<b>',<c>,<d>)",
          {1, 1, 0, Value()}));
  connection.Execute(
      sql("update replace_m set use_type='R',r_mmedia_filename='<a>'where replace_no= <b> and "
          "replace_m_no='<c>'",
          {"C:\\new\\1", "1", 1}));
  for (const char* answer : {"null", "True"}) {
    connection.Execute("delete from replace_cond");
    connection.Execute(sql(
        "INSERT INTO REPLACE_COND ( REPLACE_COND_NO, SNO, S_METHOD, N_F_VAL, B_VAL, REPLACE_NO ) "
        "VALUES ( %01 , '%02' , '%03' , %04 , %05 , %06 )",
        {1, 1, 2, -5, answer, 1}));
  }
  EXPECT_EQ(store.rows("select replace_cond_type,p_replace_m_no,r_mmedia_filename from replace_m "
                       "where use_type='R'"),
            std::vector<std::string>{"0|null|C:\\new\\1"});
  EXPECT_EQ(store.rows("select s_method,n_f_val,b_val from replace_cond where n_f_val<-4.5"),
            std::vector<std::string>{"2|-5|True"});
  EXPECT_EQ(value_of("select $$it's 5$$"), Value(std::string("it's 5")));
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

TEST_F(PostgresqlEngine, WaitsForAnotherProgramAndTellsWhetherToBeginAnew) {
  Connection other;
  other.Open(store.connect_string());
  other.BeginTrans();
  advance_number(other, "replace");
  connection.BeginTrans();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(failure_of([&] { advance_number(connection, "replace"); }).kind(), failure_kind::busy);
  EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
  connection.RollbackTrans();

  connection.BeginTrans();
  EXPECT_EQ(last_number(connection, "replace_m"), 0);
  other.CommitTrans();
  EXPECT_EQ(last_number(connection, "replace"), 0);
  EXPECT_EQ(failure_of([&] { advance_number(connection, "replace"); }).kind(), failure_kind::stale);
}

TEST_F(PostgresqlEngine, TellsWhyItCannotConnectButNotThePassword) {
  store.run("drop role if exists vorlumine_guest");
  store.run("create role vorlumine_guest login password 'right-secret'");
  const auto text_of = [](const std::string& connect_string) {
    Connection refused;
    std::string text = failure_of([&] { refused.Open(connect_string); }).what();
    EXPECT_FALSE(refused.is_open());
    EXPECT_EQ(text.find("secret"), std::string::npos) << text;
    return text;
  };
  const auto changed = [&](const std::string& key, const std::string& value) {
    std::map<std::string, std::string> changes = {{"uid", "vorlumine_guest"},
                                                  {"pwd", "right-secret"}};
    changes[key] = value;
    return harness::server_connect_string(changes);
  };
  EXPECT_NE(text_of(changed("pwd", "wrong-secret")).find("password authentication failed"),
            std::string::npos);
  EXPECT_NE(text_of(changed("database", "nowhere")).find("\"nowhere\" does not exist"),
            std::string::npos);
  EXPECT_NE(text_of(changed("server", store.folder().string())).find("No such file"),
            std::string::npos);
  EXPECT_NE(text_of(changed("port", "none")).find("port"), std::string::npos);

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
