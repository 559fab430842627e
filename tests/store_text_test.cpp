#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "content_of.h"
#include "store/connection_string.h"
#include "store/sql.h"
#include "store_failure.h"

using namespace ADODB;

namespace {

TEST(ConnectionString, KnowsKeysInAnyCaseAndTakesBracesOff) {
  const auto settings = read_connection_string(" DATABASE = {/a;b}}c} ;; driver=sqLite ; ");
  EXPECT_EQ(settings.driver, "sqlite");
  EXPECT_EQ(settings.values.at("database"), "/a;b}c");

  const auto server = read_connection_string(
      "Driver={PostgreSQL};Server=db;Port=5432;Database=d;Uid=u;Pwd=a=b ;SSLMode=require;"
      "LockTimeout=0001;StatementTimeout=3600");
  EXPECT_EQ(server.values.size(), 8U);
  EXPECT_EQ(server.values.at("pwd"), "a=b");
}

TEST(ConnectionString, RefusesWhatItCannotReadWithoutTellingContent) {
  const auto refusal_of = [](const std::string& text) {
    return std::string(failure_of([&] { (void)read_connection_string(text); }).what());
  };
  for (const std::string& line : harness::lines_of("refused_connection_strings.txt")) {
    const std::size_t arrow = line.find(" -> ");
    const std::string told = refusal_of(line.substr(0, arrow));
    EXPECT_TRUE(told.starts_with("connection string: " + line.substr(arrow + 4))) << told;
    EXPECT_EQ(told.find("secret"), std::string::npos) << line;
  }
}

using parameters = std::vector<parameter>;
constexpr std::monostate null;

TEST(Sql, KeepsValuesBesideTheWords) {
  const statement look_up =
      sql("select ' ','<a>' from t where b= '<b c>'and n=<n> and m<3", {"O'Neil <b> %1", -7, "-7"});
  EXPECT_EQ(look_up.text.with_parameters(parameter_form::numbered),
            "select ' ',$1 from t where b= $2 and n=$3 and m<3");
  EXPECT_EQ(look_up.parameters, (parameters{"O'Neil <b> %1", "-7", std::int64_t{-7}}));

  const statement row =
      sql("values('%01' , %02 , '%03','%4')", {Value(), Value(), true, Value(0.1)});
  EXPECT_EQ(row.text.with_parameters(parameter_form::question_mark), "values(? , ? , ?,?)");
  EXPECT_EQ(row.parameters, (parameters{null, null, "True", "0.1"}));
}

TEST(Sql, LetsNothingButNumbersAndWordsIntoPlacesOutsideQuotes) {
  const auto taken = [](const argument& value) { return sql("<a>", {value}).parameters.front(); };
  EXPECT_EQ(taken("tRUE"), parameter(true));
  EXPECT_EQ(taken(Value(false)), parameter(false));
  EXPECT_EQ(taken("NULL"), parameter(null));
  EXPECT_EQ(taken("-9223372036854775808"), parameter(std::numeric_limits<std::int64_t>::min()));
  EXPECT_EQ(taken("9223372036854775808"), parameter(decimal{"9223372036854775808"}));
  EXPECT_EQ(taken(Value(-0.5)), parameter(decimal{"-0.5"}));
  for (const char* text : {"", "-", "1 or 1=1", "x", "1;", "--1", "+1", "1.", "'a'", "1e5", "nan"})
    EXPECT_EQ(std::string(failure_of([&] { (void)taken(text); }).what()),
              "a place for a number holds something else")
        << text;
  EXPECT_THROW((void)sql("<a>", {}), std::logic_error);
  EXPECT_THROW((void)sql("<a>", {1, 2}), std::logic_error);
}

// In the words of a statement the compiler reports these.
TEST(Sql, RefusesMisplacedPlaces) {
  for (const char* text : {"'x<a>'", "'<a>x'", "'%1", "<a", "%2", "'x"}) {
    place_finder places(text);
    EXPECT_THROW((void)places.next(), std::logic_error) << text;
  }
}

TEST(Value, HasTheShortestTextThatReadsBackTheSame) {
  EXPECT_EQ(Value(0.1).text(), "0.1");
  EXPECT_EQ(Value(5.0).text(), "5");
  EXPECT_EQ(Value(1e23).text(), "100000000000000000000000");
  EXPECT_EQ(Value(-1.25e-3).text() + Value(12.5).text() + Value(-0.0).text(), "-0.0012512.50");
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

}  // namespace
