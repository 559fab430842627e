#include <libpq-fe.h>

#include <stdexcept>
#include <unordered_map>

#include "bare_connection.h"
#include "store/connection_string.h"

namespace bench {
namespace {

class postgresql_row : public bare_row {
 public:
  postgresql_row(const PGresult* answer, int row) : answer_(answer), row_(row) {}
  [[nodiscard]] int columns() const override { return PQnfields(answer_); }
  [[nodiscard]] const char* name(int column) const override { return PQfname(answer_, column); }
  [[nodiscard]] const char* text(int column) const override {
    return PQgetisnull(answer_, row_, column) == 1 ? nullptr : PQgetvalue(answer_, row_, column);
  }

 private:
  const PGresult* answer_;
  int row_;
};

PGconn* connect(const std::string& connect_string) {
  const auto settings = ADODB::read_connection_string(connect_string).values;
  const auto value = [&](const char* key) { return settings.at(key).c_str(); };
  return PQsetdbLogin(value("server"), value("port"), nullptr, nullptr, value("database"),
                      value("uid"), nullptr);
}

class bare_postgresql final : public bare_connection {
 public:
  explicit bare_postgresql(const std::string& connect_string)
      : connection_(connect(connect_string), &PQfinish) {
    if (PQstatus(connection_.get()) != CONNECTION_OK)
      throw std::runtime_error(PQerrorMessage(connection_.get()));
    // The product's ways to the rows: others would make the look-ups in a fresh database slow.
    run_all("SET enable_seqscan=off; SET enable_bitmapscan=off; SET jit=off");
  }

  void send(const std::string& statement, const row_reader& reader) override {
    read(PQexec(connection_.get(), statement.c_str()), reader);
  }

  void send_prepared(const std::string& statement, const std::string& value,
                     const row_reader& reader) override {
    std::string& name = prepared_[statement];
    if (name.empty()) {
      name = "statement_" + std::to_string(prepared_.size());
      read(PQprepare(connection_.get(), name.c_str(), statement.c_str(), 0, nullptr), {});
    }
    const char* const values[] = {value.c_str()};
    read(PQexecPrepared(connection_.get(), name.c_str(), 1, values, nullptr, nullptr, 0), reader);
  }

  // A text of several statements is a transaction by itself.
  void run_all(const std::string& script) override { send(script, {}); }

 private:
  void read(PGresult* answer, const row_reader& reader) {
    const std::unique_ptr<PGresult, decltype(&PQclear)> held(answer, &PQclear);
    const ExecStatusType status = PQresultStatus(answer);
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK)
      throw std::runtime_error(PQerrorMessage(connection_.get()));
    for (int row = 0; reader && row < PQntuples(answer); ++row) reader(postgresql_row(answer, row));
  }

  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
  std::unordered_map<std::string, std::string> prepared_;  ///< names by statement
};

}  // namespace

std::unique_ptr<bare_connection> open_bare_postgresql(const std::string& connect_string) {
  return std::make_unique<bare_postgresql>(connect_string);
}

}  // namespace bench
