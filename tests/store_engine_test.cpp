#include <gtest/gtest.h>

#include <chrono>

#include "store/key_counters.h"
#include "store/sql.h"
#include "store_failure.h"
#include "test_store.h"

using namespace ADODB;

namespace {

class StoreEngine : public testing::Test {
 protected:
  StoreEngine() { connection.Open(store.connect_string()); }

  harness::test_store store;
  Connection connection;
};

TEST_F(StoreEngine, GivesBackEveryValueAsItWasWritten) {
  std::string hundred;
  for (int i = 0; i < 100; ++i) hundred += "あ";
  for (const std::string& text :
       {std::string("O'Neil '' ?1 ;--"), std::string("😀\r\n\t行"), hundred, std::string(" "),
        std::string(), std::string("<n> %10 $1"), std::string("C:\\new\\1")}) {
    connection.Execute("delete from replace");
    connection.Execute(sql("insert into replace(replace_no,title) values(<n>,'<t>')", {1, text}));
    EXPECT_EQ(connection.Execute("select TITLE from replace").Fields().Item("Title").Value(),
              Value(text));
    EXPECT_EQ(
        connection.Execute(sql("select 1 from replace where title='<t>'", {text})).RecordCount(),
        1U);
  }
}

// Number dialogs quote their values, copies don't: the column makes the same of both.
TEST_F(StoreEngine, StoresANumberAlikeHoweverItIsWritten) {
  constexpr words quoted =
      "insert into replace_cond(replace_no,replace_cond_no,sno,n_f_val) values(1,1,'<s>','<n>')";
  constexpr words unquoted =
      "insert into replace_cond(replace_no,replace_cond_no,sno,n_f_val) values(1,1,<s>,<n>)";
  std::vector<std::string> numbers = {
      "0.1", "-5", "-2147483649", "9007199254740993", "123456789.125", "-1000000000000000000000"};
  // A file keeps some 15 digits of a fraction, a server all.
  if (harness::on_server())
    numbers.insert(numbers.end(),
                   {"-12345678901234567890.1234567890123", "0.000000000000000000001"});
  for (const std::string& number : numbers) {
    connection.Execute("delete from replace_cond");
    connection.Execute(sql(quoted, {1, number}));
    connection.Execute(sql(unquoted, {"2", number}));
    EXPECT_EQ(store.rows("select n_f_val from replace_cond where n_f_val=" + number),
              (std::vector<std::string>{number, number}));
    for (const words& find : {words("select 1 from replace_cond where n_f_val='<n>'"),
                              words("select 1 from replace_cond where n_f_val=<n>")})
      EXPECT_EQ(connection.Execute(sql(find, {number})).RecordCount(), 2U) << number;
  }
  connection.Execute(sql(quoted, {3, Value()}));
  connection.Execute(sql(unquoted, {4, Value()}));
  EXPECT_EQ(store.value("select count(*) from replace_cond where n_f_val is null"), "2");
}

TEST_F(StoreEngine, TellsBooleansFromNumbersAndNulls) {
  constexpr words insert =
      "insert into replace_cond(replace_no,replace_cond_no,sno,b_val) values(1,1,<s>,<b>)";
  connection.Execute(sql(insert, {1, Value()}));
  connection.Execute(sql(insert, {2, "False"}));
  EXPECT_EQ(store.value("select b_val from replace_cond where sno=2"), "False");
  connection.Execute(sql("update replace_cond set b_val=<b> where sno=2", {true}));
  Recordset lines = connection.Execute("select b_val,sno from replace_cond order by sno");
  EXPECT_TRUE(lines.Fields().Item("B_VAL").Value().is_null());
  EXPECT_THROW((void)lines.Fields().Item(2), Error);
  lines.MoveNext();
  EXPECT_EQ(lines.Fields().Item(0).Value(), Value(true));
  EXPECT_EQ(lines.Fields().Item(1).Value(), Value(std::int64_t{2}));
  EXPECT_THROW((void)lines.Fields().Item("s_val"), Error);
  lines.MoveNext();
  EXPECT_TRUE(lines.eof());
  EXPECT_THROW((void)lines.Fields().Item(0), Error);
  lines.Close();
  EXPECT_TRUE(lines.eof());
  EXPECT_THROW((void)lines.Fields(), Error);
}

TEST_F(StoreEngine, GivesLinesByTheirNumbersAndFieldsAsPutInWithoutBeingAskedTo) {
  for (const char* sno : {"3", "1", "2"})
    store.run(std::string("insert into replace_cond(replace_no,replace_cond_no,sno) values(1,1,") +
              sno + ")");
  const std::vector<std::string> in_order = {"1", "2", "3"};
  EXPECT_EQ(store.rows("select sno from replace_cond where replace_cond_no=1 and replace_no=1"),
            in_order);
  EXPECT_EQ(store.rows("SELECT sno FROM REPLACE_COND WHERE REPLACE_COND_NO = 1"), in_order);
  store.run("insert into field values('z','b','T'),('a','c','T'),('m','a','T')");
  EXPECT_EQ(store.rows("select field_id,field_name from field"),
            (std::vector<std::string>{"z|b", "a|c", "m|a"}));
}

TEST_F(StoreEngine, RunsOneStatementOnly) {
  for (const char* text : {"delete from seqno; delete from field", "delete from seqno;x",
                           "create table t(a); create table u(a)", "delete from seqno where 1='",
                           "delete from seqno where 1=?", "", " ; "})
    EXPECT_THROW(connection.Execute(text), Error) << text;
  EXPECT_EQ(store.value("select count(*) from seqno"), "1");
  for (const char* table : {"t", "u"})
    EXPECT_THROW(connection.Execute(std::string("select * from ") + table), Error);
  EXPECT_THROW(connection.Execute(sql("select <a>;select 2", {1})), Error);
  EXPECT_THROW(advance_number(connection, "replace_cond=5,replace_m"), std::logic_error);
  connection.Execute("update seqno set replace=7 ; ; -- done");
  EXPECT_EQ(last_number(connection, "replace"), 7);
}

TEST_F(StoreEngine, ShowsATransactionToItselfAloneAndTakesItBack) {
  connection.BeginTrans();
  EXPECT_THROW(connection.BeginTrans(), Error);
  connection.Execute("update seqno set replace=5");
  EXPECT_EQ(last_number(connection, "replace"), 5);
  EXPECT_EQ(store.value("select replace from seqno"), "0");
  connection.RollbackTrans();
  EXPECT_THROW(connection.RollbackTrans(), Error);
  EXPECT_EQ(last_number(connection, "replace"), 0);

  connection.BeginTrans();
  connection.Execute("update seqno set replace=6");
  connection.CommitTrans();
  connection.BeginTrans();
  connection.Execute("update seqno set replace=7");
  EXPECT_THROW(connection.Open(store.connect_string()), Error);
  connection.Close();
  EXPECT_THROW(connection.Close(), Error);
  EXPECT_THROW(connection.Execute("select 1"), Error);
  EXPECT_EQ(store.value("select replace from seqno"), "6");
  connection.Open(store.connect_string());
  EXPECT_FALSE(connection.in_transaction());
}

TEST_F(StoreEngine, TellsWhyAStatementWasRefused) {
  const auto insert = [&](int key) {
    connection.Execute(sql("insert into field values('<id>','name','T')", {key}));
  };
  insert(1);
  EXPECT_EQ(failure_of([&] { insert(1); }).kind(), failure_kind::refused_by_key);
  EXPECT_EQ(failure_of([&] { insert(2); }).kind(), failure_kind::refused_by_key);
  EXPECT_EQ(failure_of([&] { connection.Execute("select * from nowhere"); }).kind(),
            failure_kind::other);
  // A refused statement leaves nothing behind that its next use would stumble over.
  store.run("delete from field");
  insert(2);

  connection.BeginTrans();
  (void)last_number(connection, "replace_m");
  store.run("update seqno set replace=1");
  EXPECT_EQ(last_number(connection, "replace"), 0);
  EXPECT_EQ(failure_of([&] { advance_number(connection, "replace"); }).kind(), failure_kind::stale);
  connection.RollbackTrans();
}

// More at once than all buffers between program and server hold, in both directions.
TEST_F(StoreEngine, GivesTheResultsOfManyStatementsInTheirOrder) {
  std::vector<statement> many;
  const std::string filling(2000, 'x');
  many.reserve(10000);
  for (int i = 0; i < 10000; ++i) many.push_back(sql("select <n>,'<t>'", {i, filling}));
  int seen = 0;
  connection.ExecuteAll(many, [&](const Recordset& rows) {
    EXPECT_EQ(rows.Fields().Item(0).Value().number(), seen++);
    EXPECT_EQ(rows.Fields().Item(1).Value().text().size(), filling.size());
  });
  EXPECT_EQ(seen, 10000);
  EXPECT_THROW(connection.ExecuteAll(many, [](const Recordset&) { throw std::bad_alloc(); }),
               std::bad_alloc);
  EXPECT_EQ(last_number(connection, "replace"), 0);
}

TEST_F(StoreEngine, EndsManyStatementsAtTheFirstThatFails) {
  const auto insert = [](int key) {
    return sql("insert into replace(replace_no) values(<n>)", {key});
  };
  const std::vector<statement> writes = {insert(1), insert(2), insert(1), insert(3)};
  const std::string keys = "select replace_no from replace order by 1";
  const auto run = [&](const std::vector<statement>& statements) {
    int results = 0;
    const auto run_all = [&] {
      connection.ExecuteAll(statements, [&](const Recordset&) { ++results; });
    };
    return std::pair(failure_of(run_all).kind(), results);
  };
  const std::pair third_is_refused(failure_kind::refused_by_key, 2);
  EXPECT_EQ(run(writes), third_is_refused);
  EXPECT_EQ(store.rows(keys), (std::vector<std::string>{"1", "2"}));
  store.run("delete from replace");
  connection.BeginTrans(purpose::writing);
  EXPECT_EQ(run(writes), third_is_refused);
  connection.RollbackTrans();
  EXPECT_EQ(store.value("select count(*) from replace"), "0");
  const statement look_up = sql("select <n>", {1});
  EXPECT_EQ(run({look_up, sql("select 1 from nowhere", {}), look_up}),
            std::pair(failure_kind::other, 1));
  EXPECT_EQ(connection.ExecuteAll(std::vector{look_up, look_up}).size(), 2U);
}

TEST_F(StoreEngine, WaitsForAnotherProgramSomeSecondsThenIsBusy) {
  Connection other;
  other.Open(store.connect_string());
  other.BeginTrans();
  advance_number(other, "replace");
  connection.BeginTrans();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(failure_of([&] { advance_number(connection, "replace"); }).kind(), failure_kind::busy);
  EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));

  // As if the user had ended the wait: the next command finds the connection in order.
  struct failing_display : shown_wait {
    awaited what;
    explicit failing_display(awaited wait) : what(wait) {}
    bool goes_on() override {
      if (what != awaited::connection) throw std::bad_alloc();
      return true;
    }
  };
  connection.Close();
  connection.while_waiting = [](awaited what) { return std::make_unique<failing_display>(what); };
  connection.Open(store.connect_string());
  EXPECT_EQ(failure_of([&] { advance_number(connection, "replace"); }).kind(), failure_kind::busy);
  other.RollbackTrans();
  EXPECT_EQ(last_number(connection, "replace"), 0);
}

TEST_F(StoreEngine, FollowsTablesThatChangeUnderAKeptStatement) {
  store.run("insert into field values('a','b','T')");
  const auto read = [&] {
    return connection.Execute(sql("select * from field where field_id='<id>'", {"a"}));
  };
  EXPECT_EQ(read().Fields().Count(), 3U);
  store.run("alter table field add column hidden boolean default true");
  EXPECT_EQ(read().Fields().Item("hidden").Value(), Value(true));
  store.run("drop table field");
  EXPECT_THROW(read(), Error);
  store.run("create table field(field_id text)");
  EXPECT_TRUE(read().eof());
}

}  // namespace
