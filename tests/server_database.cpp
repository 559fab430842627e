#include "server_database.h"

#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "store/connection.h"
#include "store/connection_string.h"
#include "tool/store_maker.h"

namespace harness {
namespace {

constexpr auto model = "vorlumine_empty";

std::string server() {
  const char* const given = std::getenv("VORLUMINE_TEST_SERVER");
  if (!given)
    throw std::runtime_error(
        "VORLUMINE_TEST_SERVER names no server: run this command through "
        "scripts/postgresql_server");
  return given;
}

/// Makes the database of which every store is a copy, unless another test process has.
void ensure_model() {
  ADODB::Connection connection;
  connection.Open(server());
  connection.Execute("select pg_advisory_lock(1)");
  const std::string look_up =
      std::string("select 1 from pg_database where datname='") + model + "'";
  if (!connection.Execute(look_up).eof()) return;
  connection.Execute("drop database if exists half_made");
  connection.Execute("create database half_made template template0");
  rule_store::make_store(server_connect_string({{"database", "half_made"}}),
                         rule_store::content::empty);
  connection.Execute(std::string("alter database half_made rename to ") + model);
}

}  // namespace

bool on_server() {
  const char* const engine = std::getenv("VORLUMINE_TEST_ENGINE");
  return engine && std::string_view(engine) == "postgresql";
}

server_database::server_database() {
  static const bool made_once = (ensure_model(), true);
  static_cast<void>(made_once);
  static int count = 0;
  name_ = "store_" + std::to_string(::getpid()) + "_" + std::to_string(++count);
  run_on_server("create database " + name_ + " template " + model);
}

server_database::~server_database() {
  run_on_server("drop database " + name_ + " with (force)");
}

std::string server_database::connect_string() const {
  const char* const pool = std::getenv("VORLUMINE_TEST_POOL");
  if (!pool) return server_connect_string({{"database", name_}});
  return server_connect_string({{"database", name_}, {"server", pool}});
}

void run_on_server(const std::string& statement) {
  ADODB::Connection connection;
  connection.Open(server());
  connection.Execute(statement);
}

std::string server_connect_string(const std::map<std::string, std::string>& changes) {
  auto settings = ADODB::read_connection_string(server());
  std::string text = "Driver=PostgreSQL";
  for (const auto& [key, value] : changes) settings.values[key] = value;
  for (const auto& [key, value] : settings.values)
    text.append(";").append(key).append("={").append(value).append("}");
  return text;
}

}  // namespace harness
