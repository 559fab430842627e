#pragma once

#include <map>
#include <string>

namespace harness {

/// Whether the tests run on a server: VORLUMINE_TEST_ENGINE is "postgresql", and
/// VORLUMINE_TEST_SERVER, a connection string, names somebody who may make databases there.
[[nodiscard]] bool on_server();

/// A database with the empty tables of a store, which goes when the object does, whoever is still
/// connected to it.
class server_database {
 public:
  server_database();
  server_database(const server_database&) = delete;
  server_database& operator=(const server_database&) = delete;
  ~server_database();

  /// Through the pool of scripts/server_pool where that runs.
  [[nodiscard]] std::string connect_string() const;

 private:
  std::string name_;
};

/// Runs one statement on the server, outside of any store.
void run_on_server(const std::string& statement);

/// The server's connection string with other values for some of its keys.
[[nodiscard]] std::string server_connect_string(const std::map<std::string, std::string>& changes);

}  // namespace harness
