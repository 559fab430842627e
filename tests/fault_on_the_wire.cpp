#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <vector>

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

std::uint32_t length_at(const char* position) {
  std::uint32_t length = 0;
  std::memcpy(&length, position, 4);
  return ntohl(length);
}

/// One message: its type, but for the first of a connection, its length, its content. Empty at the
/// end of the connection.
std::string message(int from, std::size_t type_size) {
  std::string head = bytes(from, type_size + 4);
  if (head.empty()) return {};
  const std::size_t rest = length_at(head.data() + type_size) - 4;
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

std::string made_message(char type, const std::string& content) {
  const std::uint32_t length = htonl(static_cast<std::uint32_t>(content.size() + 4));
  std::string made = type + std::string(4, '0') + content;
  std::memcpy(made.data() + 1, &length, 4);
  return made;
}

/// A statement within what a client sends at once, and where the messages for it begin.
struct asked_statement {
  std::size_t begin;
  std::string text;
};

/// The request with nothing from the statement on but one that the server refuses. A refused commit
/// takes the transaction back.
std::string refused(const std::string& request, const asked_statement& statement) {
  const std::string nonsense = std::string("select \"") + refusal + '"' + '\0';
  if (request.front() == 'Q')
    return made_message('Q', (statement.text.ends_with("COMMIT") ? "ROLLBACK;" : "") + nonsense);
  return request.substr(0, statement.begin) +
         made_message('P', '\0' + nonsense + std::string(2, '\0')) + made_message('S', {});
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
    if (kind_ == wire_fault::refused) return text.find(refusal) != text.npos;
    return tells_loss(text);
  }

 private:
  void serve(int client);
  [[nodiscard]] std::vector<asked_statement> statements_of(const std::string& request);
  /// Outside a transaction what changes nothing is sent once more, without a word.
  [[nodiscard]] bool is_sent_again(std::string_view statement) const {
    if (kind_ == wire_fault::refused || in_transaction_) return false;
    return ADODB::lower(statement.substr(0, 7)) == "select " || statement.starts_with("BEGIN");
  }
  /// Counts what can fail in the request, and gives the statement that is to. A connection is lost
  /// with a whole request.
  [[nodiscard]] std::optional<asked_statement> hit(const std::string& request);

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
    const auto failing = hit(request);
    if (failing && (kind_ == wire_fault::lost_before || kind_ == wire_fault::away)) return;
    const bool is_refused = failing && kind_ == wire_fault::refused;
    if (!send(server, is_refused ? refused(request, *failing) : request)) return;
    const std::string answer = messages(server, "Z");
    if (failing && !is_refused) return;
    if (!send(client, answer)) return;
  }
}

/// None in the first message of a connection, which has no type.
std::vector<asked_statement> wire_faults::statements_of(const std::string& request) {
  std::vector<asked_statement> found;
  std::optional<std::size_t> preparation;
  const std::size_t size = request.front() == 0 ? 0 : request.size();
  for (std::size_t begin = 0; begin < size; begin += 1 + length_at(&request[begin + 1])) {
    const char* const first = &request[begin] + 5;
    if (request[begin] == 'Q') found.push_back({begin, first});
    if (request[begin] == 'P') {
      preparation = begin;
      prepared_[first] = first + std::strlen(first) + 1;
    } else if (request[begin] == 'B') {
      found.push_back({preparation.value_or(begin), prepared_[first + std::strlen(first) + 1]});
      preparation.reset();
    }
  }
  return found;
}

std::optional<asked_statement> wire_faults::hit(const std::string& request) {
  const std::lock_guard guard(lock_);
  for (asked_statement& statement : statements_of(request)) {
    const std::string& text = statement.text;
    if (kind_ == wire_fault::commit_lost && !text.ends_with("COMMIT")) continue;
    const bool never_refused = kind_ == wire_fault::refused && text == "ROLLBACK";
    if (text.ends_with("COMMIT") || text == "ROLLBACK") in_transaction_ = false;
    const bool is_silent = is_sent_again(text);
    if (text.starts_with("BEGIN")) in_transaction_ = true;
    if (!never_refused && ++seen_ == wanted_) {
      failed_ = (is_silent ? "sent again: " : "") + text;
      is_away_ = kind_ == wire_fault::away;
      return std::move(statement);
    }
    if (kind_ != wire_fault::refused) return {};
  }
  return {};
}

}  // namespace

std::unique_ptr<store_faults> fault_on_the_wire(const test_store& store, wire_fault kind) {
  return std::make_unique<wire_faults>(store, kind);
}

}  // namespace harness
