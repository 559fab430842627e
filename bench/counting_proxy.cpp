#include "counting_proxy.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "temporary_folder.h"

namespace bench {
namespace {

using std::chrono::steady_clock;

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
    std::size_t begin = 0;
    unread_ += piece;
    while (true) {
      const std::size_t letter = is_first_ ? 0 : 1;
      if (unread_.size() < begin + letter + 4) break;
      const std::size_t end = begin + letter + length_at(begin + letter);
      if (unread_.size() < end) break;
      constexpr char sync = 'S';
      constexpr char query = 'Q';
      requests += !is_first_ && (unread_[begin] == sync || unread_[begin] == query) ? 1 : 0;
      is_first_ = false;
      begin = end;
    }
    unread_.erase(0, begin);
    return requests;
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

/// One direction: what has been read at one end, until it is due at the other.
class road {
 public:
  road(int from, int to, std::chrono::milliseconds delay) : from_(from), to_(to), delay_(delay) {}

  /// Gives what is there to read; nothing at the end of the stream.
  std::string_view read() {
    const ssize_t size = ::recv(from_, buffer_.data(), buffer_.size(), MSG_DONTWAIT);
    if (size <= 0) return {};
    const std::string_view bytes(buffer_.data(), static_cast<std::size_t>(size));
    on_the_way_.push_back({steady_clock::now() + delay_, std::string(bytes)});
    bytes_ += bytes.size();
    return bytes;
  }

  /// Sends what is due as far as the other end takes it. False if that is gone.
  bool write() {
    while (is_due(steady_clock::now())) {
      std::string& bytes = on_the_way_.front().bytes;
      const ssize_t sent = ::send(to_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
      if (sent < 0) return errno == EAGAIN;
      bytes_ -= static_cast<std::size_t>(sent);
      bytes.erase(0, static_cast<std::size_t>(sent));
      if (bytes.empty()) on_the_way_.pop_front();
    }
    return true;
  }

  /// Whether more may be read, as some limit to what is on the way has to be.
  [[nodiscard]] bool has_room() const { return bytes_ < most_bytes; }
  [[nodiscard]] bool is_due(steady_clock::time_point now) const {
    return !on_the_way_.empty() && on_the_way_.front().due <= now;
  }
  /// When the next piece is due that isn't yet.
  [[nodiscard]] steady_clock::time_point next_due(steady_clock::time_point now) const {
    return on_the_way_.empty() || is_due(now) ? steady_clock::time_point::max()
                                              : on_the_way_.front().due;
  }

 private:
  static constexpr std::size_t most_bytes = 16 << 20;
  struct piece {
    steady_clock::time_point due;
    std::string bytes;
  };

  int from_;
  int to_;
  std::chrono::milliseconds delay_;
  std::array<char, 65536> buffer_{};
  std::deque<piece> on_the_way_;
  std::size_t bytes_ = 0;
};

/// Waits until a road can go on, at its beginning or at its end.
std::array<pollfd, 2> wait_for(int client, int server, const road& there, const road& back) {
  // One moment for all questions: what came due between two of them would be waited for by none.
  const auto now = steady_clock::now();
  const auto events = [now](const road& out, const road& in) {
    return static_cast<short>((out.has_room() ? POLLIN : 0) | (in.is_due(now) ? POLLOUT : 0));
  };
  std::array<pollfd, 2> ends{{{client, events(there, back), 0}, {server, events(back, there), 0}}};
  const auto due = std::min(there.next_due(now), back.next_due(now));
  if (due == steady_clock::time_point::max()) {
    ::ppoll(ends.data(), ends.size(), nullptr, nullptr);
    return ends;
  }
  const auto left = std::max(due - steady_clock::now(), steady_clock::duration::zero());
  const timespec time{0, std::chrono::nanoseconds(left).count()};
  ::ppoll(ends.data(), ends.size(), &time, nullptr);
  return ends;
}

}  // namespace

counting_proxy::counting_proxy(const std::filesystem::path& server_folder,
                               std::chrono::milliseconds delay)
    : folder_(make_temporary_folder()), delay_(delay), listener_(local_socket()) {
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
  for (int accepted = 0; (accepted = ::accept(listener_, nullptr, nullptr)) >= 0;) {
    const descriptor client(accepted);
    const descriptor server(local_socket());
    at(server_socket, &::connect, server.number());
    message_reader messages;
    const auto there = std::make_unique<road>(client.number(), server.number(), delay_);
    const auto back = std::make_unique<road>(server.number(), client.number(), delay_);
    for (bool open = true; open;) {
      const auto ends = wait_for(client.number(), server.number(), *there, *back);
      constexpr short something = POLLIN | POLLHUP | POLLERR;
      if ((ends[0].revents & something) != 0) {
        const std::string_view sent = there->read();
        round_trips_ += messages.requests_in(sent);
        open = !sent.empty();
      }
      if ((ends[1].revents & something) != 0) open = !back->read().empty() && open;
      open = open && there->write() && back->write();
    }
  }
}

}  // namespace bench
