#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string_view>
#include <thread>

#include "store/connection_string.h"
#include "store/text.h"
#include "store_faults.h"

namespace harness {
namespace {

constexpr auto refusal = "だめです";

/// Calls bind() or connect() with the address of a local socket.
int at(int (*call)(int, const sockaddr*, socklen_t), int socket, const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  return call(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

int new_socket() {
  return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

std::string bytes(int from, std::size_t count) {
  std::string read(count, '\0');
  const ssize_t got = ::recv(from, read.data(), count, MSG_WAITALL);
  return got == static_cast<ssize_t>(count) ? read : std::string();
}

bool send(int to, std::string_view message) {
  return ::send(to, message.data(), message.size(), MSG_NOSIGNAL) ==
         static_cast<ssize_t>(message.size());
}

/// One message: its type, but for the first of a connection, its length, its content. Empty at the
/// end of the connection.
std::string message(int from, std::size_t type_size) {
  std::string head = bytes(from, type_size + 4);
  if (head.empty()) return {};
  std::uint32_t length = 0;
  std::memcpy(&length, head.data() + type_size, 4);
  const std::size_t rest = ntohl(length) - 4;
  return rest == 0 ? head : head + bytes(from, rest);
}

/// All messages up to one of the types given: what a client asks, or the server answers, at once.
std::string messages(int from, std::string_view last_types) {
  std::string all;
  while (true) {
    const std::string next = message(from, 1);
    all += next;
    if (next.empty() || last_types.find(next.front()) != last_types.npos) return all;
  }
}

std::string query(const std::string& text) {
  const std::uint32_t length = htonl(static_cast<std::uint32_t>(text.size() + 5));
  std::string message = "Q0000" + text + '\0';
  std::memcpy(message.data() + 1, &length, 4);
  return message;
}

// A refused commit takes the transaction back.
std::string refused(const std::string& statement) {
  return query((statement.ends_with("COMMIT") ? "ROLLBACK;" : "") +
               std::string("do $$ begin raise '") + refusal + "'; end $$");
}

/// A connection that goes away with this object.
class wire_end {
 public:
  explicit wire_end(int descriptor) : descriptor_(descriptor) {}
  wire_end(const wire_end&) = delete;
  wire_end& operator=(const wire_end&) = delete;
  ~wire_end() { ::close(descriptor_); }
  operator int() const { return descriptor_; }  // NOLINT(google-explicit-constructor)

 private:
  int descriptor_;
};

class wire_faults : public store_faults {
 public:
  wire_faults(const test_store& store, wire_fault kind);
  ~wire_faults() override {
    ::shutdown(listener_, SHUT_RDWR);
    traffic_.join();
    ::unlink((folder_ + "/" + port_).c_str());
  }

  [[nodiscard]] std::string connect_string(const test_store& store) const override {
    const auto settings = ADODB::read_connection_string(store.connect_string());
    return server_connect_string(
        {{"server", folder_}, {"database", settings.values.at("database")}});
  }
  void fail(int number) override {
    const std::lock_guard guard(lock_);
    wanted_ = number;
    seen_ = 0;
  }
  void mend() override { is_away_ = false; }
  [[nodiscard]] int seen() const override { return seen_; }
  [[nodiscard]] std::string failed() const override {
    const std::lock_guard guard(lock_);
    return failed_;
  }
  // Whoever loses a connection doesn't know what the server has done.
  [[nodiscard]] bool tells(const std::string& text) const override {
    if (kind_ == wire_fault::refused) return text == refusal;
    return text.starts_with("the connection to the server was lost, ");
  }

 private:
  void serve(int client);
  [[nodiscard]] std::string statement_of(std::string_view request);
  /// Outside a transaction what changes nothing is sent once more, without a word.
  [[nodiscard]] bool is_sent_again(std::string_view statement) const {
    if (kind_ == wire_fault::refused || in_transaction_) return false;
    return ADODB::lower(statement.substr(0, 7)) == "select " || statement.starts_with("prepare ") ||
           statement.starts_with("BEGIN");
  }
  /// Counts the request, and tells whether it is the one to fail.
  [[nodiscard]] bool fails(const std::string& statement);

  const wire_fault kind_;
  const std::string folder_;  ///< of the socket that is the road's beginning
  std::string server_;        ///< the socket that is its end
  std::string port_;
  std::map<std::string, std::string> prepared_;  ///< statements by their names
  mutable std::mutex lock_;
  int wanted_ = 0;
  std::atomic<int> seen_ = 0;
  std::atomic<bool> is_away_ = false;
  bool in_transaction_ = false;
  std::string failed_;
  wire_end listener_;
  std::thread traffic_;
};

wire_faults::wire_faults(const test_store& store, wire_fault kind)
    : kind_(kind), folder_(store.folder().string()), listener_(new_socket()) {
  auto settings = ADODB::read_connection_string(store.connect_string());
  port_ = ".s.PGSQL." + settings.values["port"];
  server_ = settings.values["server"] + "/" + port_;
  if (at(::bind, listener_, folder_ + "/" + port_) != 0 || ::listen(listener_, 8) != 0)
    throw std::runtime_error("there is no socket to be had in " + folder_);
  traffic_ = std::thread([this] {
    while (true) {
      const wire_end client(::accept(listener_, nullptr, nullptr));
      if (client < 0) return;
      if (!is_away_) serve(client);
    }
  });
}

// A client asks, and then waits for the answer.
void wire_faults::serve(int client) {
  const wire_end server(new_socket());
  if (at(::connect, server, server_) != 0) return;
  in_transaction_ = false;
  std::string request = message(client, 0);
  for (; !request.empty(); request = messages(client, "QSX")) {
    const std::string statement = statement_of(request);
    const bool is_hit = fails(statement);
    if (is_hit && (kind_ == wire_fault::lost_before || kind_ == wire_fault::away)) return;
    const bool is_refused = is_hit && kind_ == wire_fault::refused;
    if (!send(server, is_refused ? refused(statement) : request)) return;
    const std::string answer = messages(server, "Z");
    if (is_hit && kind_ == wire_fault::lost_after) return;
    if (!send(client, answer)) return;
  }
}

/// The text of what is asked; empty for anything but a statement.
std::string wire_faults::statement_of(std::string_view request) {
  const char type = request.front();
  if (type != 'Q' && type != 'P' && type != 'B') return {};
  const char* const first = request.data() + 5;
  const char* const second = first + std::strlen(first) + 1;
  if (type == 'Q') return first;
  if (type == 'P') return "prepare " + (prepared_[first] = second);
  return prepared_[second];
}

bool wire_faults::fails(const std::string& statement) {
  const std::lock_guard guard(lock_);
  const bool never_refused = kind_ == wire_fault::refused && statement == "ROLLBACK";
  if (statement.ends_with("COMMIT") || statement == "ROLLBACK") in_transaction_ = false;
  const bool is_silent = is_sent_again(statement);
  if (statement.starts_with("BEGIN")) in_transaction_ = true;
  if (statement.empty() || never_refused || ++seen_ != wanted_) return false;
  failed_ = (is_silent ? "sent again: " : "") + statement;
  is_away_ = kind_ == wire_fault::away;
  return true;
}

}  // namespace

std::unique_ptr<store_faults> fault_on_the_wire(const test_store& store, wire_fault kind) {
  return std::make_unique<wire_faults>(store, kind);
}

}  // namespace harness
