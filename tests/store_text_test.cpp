#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "store/connection_string.h"
#include "store/sql.h"
#include "store/statement_shape.h"
#include "store_failure.h"

using namespace ADODB;

namespace {

TEST(ConnectionString, KnowsKeysInAnyCaseAndTakesBracesOff) {
  const auto settings = read_connection_string(" DATABASE = {/a;b}}c} ;; driver=sqLite ; ");
  EXPECT_EQ(settings.driver, "sqlite");
  EXPECT_EQ(settings.values.at("database"), "/a;b}c");

  const auto server = read_connection_string(
      "Driver={PostgreSQL};Server=db;Port=5432;Database=d;Uid=u;Pwd=a=b ;SSLMode=require");
  EXPECT_EQ(server.values.size(), 6U);
  EXPECT_EQ(server.values.at("pwd"), "a=b");
}

TEST(ConnectionString, RefusesWhatItCannotReadWithoutTellingContent) {
  for (const char* text : {
           "",
           " ; ",
           "Database=secret",
           "Driver=secret;Database=x",
           "Driver=SQLite",
           "Driver=SQLite;Database=",
           "Driver=SQLite;Database=x;DATABASE=secret",
           "Driver=SQLite;Database=x;Pwd=secret",
           "Driver=PostgreSQL;Database=x;Pwd=a;secret",
           "Driver=PostgreSQL;Database=x;Pwd={secret",
           "Driver=PostgreSQL;Database=x;Pwd={a}secret",
           "Driver=PostgreSQL;Database=x;secret=1",
       }) {
    const Error failure = failure_of([&] { (void)read_connection_string(text); });
    EXPECT_EQ(std::string(failure.what()).find("secret"), std::string::npos) << text;
  }
  EXPECT_NE(std::string(failure_of([] {
                          (void)read_connection_string("Driver=SQLite;Database=x;Colour=red");
                        }).what())
                .find("entry 3"),
            std::string::npos);
}

TEST(Sql, FillsInOnePassAndDoublesApostrophes) {
  EXPECT_EQ(sql("select '<a>', '<b>' from t where n=<n> and m<3",
                {"O'Neil <b> %10", "'<a>'", std::int64_t{-7}}),
            "select 'O''Neil <b> %10', '''<a>''' from t where n=-7 and m<3");
  EXPECT_EQ(sql("values('x<a>', '<b>', <c>, <d>, <e>)", {"'", Value(), Value(), true, Value(0.1)}),
            "values('x''', null, null, True, 0.1)");
}

TEST(Sql, LetsNothingButNumbersAndWordsStandOutsideQuotes) {
  for (const char* text : {"", "1 or 1=1", "x", "1;", "--1", "1.", "'a'", "1e5"})
    EXPECT_THROW((void)sql("select <a>", {text}), std::logic_error) << text;
  EXPECT_THROW((void)sql("select <a>", {}), std::logic_error);
  EXPECT_THROW((void)sql("select <a>", {1, 2}), std::logic_error);
  EXPECT_THROW((void)sql("select 'a<a>'", {Value()}), std::logic_error);
}

TEST(Value, HasTheShortestTextThatReadsBackTheSame) {
  EXPECT_EQ(Value(0.1).text(), "0.1");
  EXPECT_EQ(Value(5.0).text(), "5");
  EXPECT_EQ(Value(1e21).text(), "1000000000000000000000");
  EXPECT_EQ(std::strtod(Value(5e-324).text().c_str(), nullptr), 5e-324);
  EXPECT_EQ(Value(-std::numeric_limits<double>::max()).text().size(), 310U);
  EXPECT_EQ(Value(false).text(), "False");
  EXPECT_EQ(Value().text(), "");
}

TEST(Value, CountsAsANumberOnlyAsAWhole) {
  EXPECT_EQ(Value(std::string("-12")).number(), -12);
  EXPECT_EQ(Value(3.0).number(), 3);
  EXPECT_EQ(Value(true).number(), 1);
  for (const Value& value : {Value(), Value(std::string("12a")), Value(std::string()), Value(1.5),
                             Value(1e19), Value(std::string("99999999999999999999"))})
    EXPECT_THROW((void)value.number(), Error) << value.text();
  EXPECT_TRUE(Value(std::int64_t{2}).truth());
  EXPECT_THROW((void)Value().truth(), Error);
}

using literals = std::vector<literal>;

TEST(StatementShape, LiftsLiteralsAndNothingElse) {
  const auto shape = [](std::string_view text) {
    return lift_literals(text, placeholder::question_mark);
  };
  const auto look_up = shape("select r_text1,\"a 'b' 2\" from t2 where a='it''s -- 5' and b=-42");
  EXPECT_EQ(look_up.text, "select r_text1,\"a 'b' 2\" from t2 where a=? and b=-?");
  EXPECT_EQ(look_up.literals, (literals{"it's -- 5", std::int64_t{42}}));

  const auto insert = shape(
      " INSERT INTO t(a) VALUES('',1.5,.5,2e3,9223372036854775807,9223372036854775808,True,0x1F)");
  EXPECT_EQ(insert.text, " INSERT INTO t(a) VALUES(?,?,?,?,?,9223372036854775808,True,0x1F)");
  EXPECT_EQ(insert.literals,
            (literals{"", 1.5, .5, 2e3, std::numeric_limits<std::int64_t>::max()}));

  EXPECT_EQ(shape("update t set a=' 'where b=x'00' /* '1' */ -- 2\n or c=3").text,
            "update t set a=? where b=x'00' /* '1' */ -- 2\n or c=?");
  EXPECT_EQ(shape("select a,1 from t where 番号1=1 order by 2").text,
            "select a,? from t where 番号1=? order by 2");
  EXPECT_EQ(lift_literals("update t set a=1,b='x'where c=''", placeholder::numbered).text,
            "update t set a=$1,b=$2 where c=$3");
  EXPECT_EQ(shape("select 123456789.123456,1234567890.123456").text, "select ?,1234567890.123456");
}

TEST(StatementShape, LeavesAloneWhatItMustNotTouch) {
  for (const char* text :
       {"CREATE TABLE t(a CHECK (a<5))", "PRAGMA busy_timeout=5", "",
        "select * from t where a=1 and b='open", "select \"open from t where a=1",
        "select 1 from t where a=$1", "select $$it's 5$$,1", "select 1,E'it\\'s 5'"}) {
    const auto shape = lift_literals(text, placeholder::question_mark);
    EXPECT_EQ(shape.text, text);
    EXPECT_TRUE(shape.literals.empty()) << text;
  }
}

}  // namespace
