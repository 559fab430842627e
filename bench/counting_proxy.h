#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <thread>

namespace bench {

/// Stands between a client and a PostgreSQL server on a local socket, keeps everything back as a
/// long way would, and counts how often the client sends something that it must wait for an answer
/// to. One client at a time.
class counting_proxy {
 public:
  /// `server_folder` holds the server's socket, and the proxy's gets the same name. Each byte is
  /// `delay` late, in both directions.
  counting_proxy(const std::filesystem::path& server_folder, std::chrono::milliseconds delay);
  counting_proxy(const counting_proxy&) = delete;
  counting_proxy& operator=(const counting_proxy&) = delete;
  /// The client must be gone by then.
  ~counting_proxy();

  /// Where the proxy's own socket is.
  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
  [[nodiscard]] std::size_t round_trips() const { return round_trips_; }

 private:
  void serve(const std::filesystem::path& server_socket);

  std::filesystem::path folder_;
  std::chrono::milliseconds delay_;
  std::atomic<std::size_t> round_trips_ = 0;
  int listener_ = -1;
  std::thread service_;
};

}  // namespace bench
