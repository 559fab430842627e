#include "counting_proxy.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <string_view>
#include <system_error>

#include "temporary_folder.h"

namespace bench {
namespace {

constexpr auto socket_name = ".s.PGSQL.5432";

class descriptor {
 public:
  explicit descriptor(int number) : number_(number) {}
  descriptor(const descriptor&) = delete;
  descriptor& operator=(const descriptor&) = delete;
  ~descriptor() { ::close(number_); }
  [[nodiscard]] int number() const { return number_; }

 private:
  int number_;
};

int local_socket() {
  return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

/// Calls bind or connect with the address of a socket in the file system.
void at(const std::filesystem::path& path, int (*call)(int, const sockaddr*, socklen_t),
        int number) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.string().copy(address.sun_path, sizeof address.sun_path - 1);
  if (call(number, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    throw std::system_error(errno, std::system_category(), path.string());
}

/// Cuts what a client sends into messages: a letter, unless it is the first, and a length that
/// counts itself.
class message_reader {
 public:
  /// How many of the messages that end in `piece` ask for an answer.
  std::size_t requests_in(std::string_view piece) {
    std::size_t requests = 0;
    unread_ += piece;
    while (true) {
      const std::size_t letter = is_first_ ? 0 : 1;
      if (unread_.size() < letter + 4) return requests;
      const std::size_t size = letter + length_at(letter);
      if (unread_.size() < size) return requests;
      constexpr char sync = 'S';
      constexpr char query = 'Q';
      requests += !is_first_ && (unread_[0] == sync || unread_[0] == query) ? 1 : 0;
      is_first_ = false;
      unread_.erase(0, size);
    }
  }

 private:
  [[nodiscard]] std::size_t length_at(std::size_t position) const {
    std::size_t length = 0;
    for (const char byte : std::string_view(unread_).substr(position, 4))
      length = length * 256 + static_cast<unsigned char>(byte);
    return length;
  }

  std::string unread_;
  bool is_first_ = true;
};

/// Hands on what is there to read, and gives it back: nothing at the stream's end.
std::string_view hand_on(int from, int to, std::array<char, 65536>& buffer) {
  const ssize_t size = ::read(from, buffer.data(), buffer.size());
  if (size <= 0) return {};
  const std::string_view piece(buffer.data(), static_cast<std::size_t>(size));
  for (std::string_view left = piece; !left.empty();) {
    const ssize_t sent = ::send(to, left.data(), left.size(), MSG_NOSIGNAL);
    if (sent <= 0) return {};
    left.remove_prefix(static_cast<std::size_t>(sent));
  }
  return piece;
}

}  // namespace

counting_proxy::counting_proxy(const std::filesystem::path& server_folder)
    : folder_(make_temporary_folder()), listener_(local_socket()) {
  at(folder_ / socket_name, &::bind, listener_);
  ::listen(listener_, 1);
  service_ = std::thread([this, server_folder] { serve(server_folder / socket_name); });
}

counting_proxy::~counting_proxy() {
  ::shutdown(listener_, SHUT_RDWR);
  service_.join();
  ::close(listener_);
  std::filesystem::remove_all(folder_);
}

void counting_proxy::serve(const std::filesystem::path& server_socket) {
  std::array<char, 65536> buffer{};
  for (int accepted = 0; (accepted = ::accept(listener_, nullptr, nullptr)) >= 0;) {
    const descriptor client(accepted);
    const descriptor server(local_socket());
    at(server_socket, &::connect, server.number());
    message_reader messages;
    std::array<pollfd, 2> ends{{{client.number(), POLLIN, 0}, {server.number(), POLLIN, 0}}};
    for (bool open = true; open && ::poll(ends.data(), ends.size(), -1) > 0;) {
      if (ends[0].revents != 0) {
        const std::string_view sent = hand_on(client.number(), server.number(), buffer);
        round_trips_ += messages.requests_in(sent);
        open = !sent.empty();
      }
      if (open && ends[1].revents != 0)
        open = !hand_on(server.number(), client.number(), buffer).empty();
    }
  }
}

}  // namespace bench
