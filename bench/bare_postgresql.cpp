#include "bare_postgresql.h"

#include <stdexcept>

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

}  // namespace

bare_postgresql::bare_postgresql(const std::map<std::string, std::string>& settings)
    : connection_(PQsetdbLogin(settings.at("server").c_str(), settings.at("port").c_str(), nullptr,
                               nullptr, settings.at("database").c_str(), settings.at("uid").c_str(),
                               nullptr)) {
  if (PQstatus(connection_.get()) != CONNECTION_OK)
    throw std::runtime_error(PQerrorMessage(connection_.get()));
  // The ways to the rows that the product takes: others would make a fresh database's look-ups
  // slow.
  run_all("SET enable_seqscan=off; SET enable_bitmapscan=off; SET jit=off");
}

void bare_postgresql::send(const std::string& statement, const row_reader& reader) {
  read(PQexec(connection_.get(), statement.c_str()), reader);
}

void bare_postgresql::send_prepared(const std::string& statement, const std::string& value,
                                    const row_reader& reader) {
  std::string& name = prepared_[statement];
  if (name.empty()) {
    name = "statement_" + std::to_string(prepared_.size());
    read(PQprepare(connection_.get(), name.c_str(), statement.c_str(), 0, nullptr), {});
  }
  const char* const values[] = {value.c_str()};
  read(PQexecPrepared(connection_.get(), name.c_str(), 1, values, nullptr, nullptr, 0), reader);
}

// A text of several statements is a transaction by itself.
void bare_postgresql::run_all(const std::string& script) {
  send(script, {});
}

void bare_postgresql::read(PGresult* answer, const row_reader& reader) {
  const std::unique_ptr<PGresult, decltype(&PQclear)> held(answer, &PQclear);
  const ExecStatusType status = PQresultStatus(answer);
  if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK)
    throw std::runtime_error(PQerrorMessage(connection_.get()));
  for (int row = 0; reader && row < PQntuples(answer); ++row) reader(postgresql_row(answer, row));
}

}  // namespace bench
