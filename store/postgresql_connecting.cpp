#include "store/postgresql_connecting.h"

#include <array>
#include <future>
#include <thread>

#include "store/error.h"

namespace ADODB {
namespace {

using std::chrono::seconds;

struct option {
  const char* keyword;
  const char* key;  ///< of the connection string
};
constexpr std::array<option, 8> given_options = {{{"service", "service"},
                                                  {"host", "server"},
                                                  {"port", "port"},
                                                  {"dbname", "database"},
                                                  {"user", "uid"},
                                                  {"password", "pwd"},
                                                  {"sslmode", "sslmode"},
                                                  {"sslrootcert", "sslrootcert"}}};
constexpr std::array<std::pair<const char*, const char*>, 6> fixed_options = {
    {{"client_encoding", "UTF8"},
     {"application_name", "ta_vorlumine"},
     {"tcp_user_timeout", "20000"},
     {"keepalives_idle", "10"},
     {"keepalives_interval", "5"},
     {"keepalives_count", "2"}}};

postgresql_handle connect_now(const connection_settings& settings) {
  std::vector<const char*> keywords;
  std::vector<const char*> values;
  const auto add = [&](const char* keyword, const char* value) {
    keywords.push_back(keyword);
    values.push_back(value);
  };
  for (const auto& [keyword, value] : fixed_options) add(keyword, value);
  const std::string limit = std::to_string(limits_of(settings).connecting.count());
  add("connect_timeout", limit.c_str());
  // A server that can only be read is refused for writing, as such a file is.
  if (settings.opened_for == access::writing) add("target_session_attrs", "read-write");
  for (const auto& [keyword, key] : given_options) {
    const auto found = settings.values.find(key);
    if (found != settings.values.end()) add(keyword, found->second.c_str());
  }
  add(nullptr, nullptr);
  // The 0 keeps libpq from reading a database name with a "=" in it as a connection string.
  return postgresql_handle(PQconnectdbParams(keywords.data(), values.data(), 0));
}

}  // namespace

// libpq tries several hosts, each within its limit, in one call only, which blocks. So that the
// wait can be shown and ended, the call runs in a thread of its own, which uses nothing but its
// copies.
postgresql_handle connect(const connection_settings& settings) {
  if (!settings.while_waiting) return connect_now(settings);
  std::packaged_task<postgresql_handle()> call([copy = settings] { return connect_now(copy); });
  std::future<postgresql_handle> made = call.get_future();
  std::thread(std::move(call)).detach();
  constexpr std::chrono::hours longest(1);
  patience wait(awaited::connection, settings.while_waiting, longest);
  while (made.wait_for(wait.next_piece()) != std::future_status::ready)
    if (wait.look() != patience::state::waits)
      throw Error(failure_kind::lost_connection, "the user has ended the wait for the server");
  return made.get();
}

// Several selects have no ORDER BY, and their rows are shown in the order of the index that finds
// them. Sequential scans, bitmap scans and parallel workers give another order, so the planner is
// kept from them. Where it has no other way it takes one of them at a penalty cost, and that cost
// would trigger JIT compilation, which takes milliseconds: hence jit=off.
server_settings::server_settings(const time_limits& limits)
    : names_and_values_{{"statement_timeout", std::to_string(limits.statement.count()) + "s"},
                        {"lock_timeout", std::to_string(limits.lock.count()) + "s"},
                        {"standard_conforming_strings", "on"},
                        {"enable_seqscan", "off"},
                        {"enable_bitmapscan", "off"},
                        {"max_parallel_workers_per_gather", "0"},
                        {"jit", "off"}} {}

std::string server_settings::of_session_of(int process) const {
  return select("false") + " where pg_backend_pid()=" + std::to_string(process);
}

std::string server_settings::behind_begin() const {
  std::string text;
  for (const auto& [name, value] : names_and_values_)
    text.append(";SET LOCAL ").append(name).append("='").append(value).append("'");
  return text;
}

std::string server_settings::select(const std::string& is_local) const {
  std::string text;
  for (const auto& [name, value] : names_and_values_) {
    text += text.empty() ? "select" : ",";
    text.append(" set_config('").append(name).append("','").append(value).append("',");
    text.append(is_local).append(")");
  }
  return text;
}

}  // namespace ADODB
