#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "store/postgresql_session.h"

namespace ADODB {
namespace {

// The server itself ends a statement that takes too long. Its answer then needs a moment to arrive.
constexpr std::chrono::seconds longest_way(2);

/// In a thread of its own, as it also waits for a server that doesn't answer. That thread uses
/// nothing that ends with the session. What is given is ready once the server knows.
std::future<void> cancel_statement(PGconn* connection) {
  const std::shared_ptr<PGcancel> cancel(PQgetCancel(connection), PQfreeCancel);
  if (!cancel) return {};
  std::packaged_task<void()> request([cancel] {
    std::array<char, 256> reason{};
    PQcancel(cancel.get(), reason.data(), reason.size());
  });
  auto sent = request.get_future();
  std::thread(std::move(request)).detach();
  return sent;
}

}  // namespace

/// Sends what libpq has not sent yet, and waits until PQgetResult can be called without blocking:
/// it then gives the next part of the answer, or the failure of the connection. Whoever has more to
/// send waits no longer than until all before it has been sent.
void postgresql_session::wait(bool has_more_to_send) {
  patience patience_left(awaited::answer, while_waiting_, limits_.statement + longest_way);
  while (true) {
    const int unsent = PQflush(handle_.get());
    const bool may_send = unsent == 0 && has_more_to_send;
    if (unsent < 0 || may_send || PQisBusy(handle_.get()) == 0) return settle_cancel();
    pollfd socket{PQsocket(handle_.get()), static_cast<short>(unsent ? POLLIN | POLLOUT : POLLIN),
                  0};
    const int ready = ::poll(&socket, 1, static_cast<int>(patience_left.next_piece().count()));
    // A host whose timers send it signals gets here before the time is over, again and again.
    if (ready == 0 || (ready < 0 && errno == EINTR)) go_on_waiting(patience_left);
    if (ready < 0 && errno == EINTR) continue;
    if (PQconsumeInput(handle_.get()) == 0) return;
  }
}

/// A statement that the user ends has an answer, too: that it was cancelled, or what it had done.
void postgresql_session::go_on_waiting(patience& wait) {
  is_shown_waiting_ = true;
  const patience::state state = wait.look();
  is_shown_waiting_ = false;
  if (state == patience::state::waits) return;
  if (state == patience::state::is_over || is_committing_) give_up();
  cancel_ = cancel_statement(handle_.get());
  wait.go_on_unseen(longest_way);
}

/// The server must have been told before another statement is sent, which would else be the one
/// that it cancels.
void postgresql_session::settle_cancel() {
  if (!cancel_.valid()) return;
  if (cancel_.wait_for(longest_way) != std::future_status::ready) give_up();
  cancel_ = {};
}

/// What the server hasn't got by now must not reach it later: to a COMMIT among it, for one, the
/// user has been told otherwise by then. So the system drops what it has not sent yet.
void postgresql_session::give_up() {
  const postgresql_handle left = std::move(handle_);
  was_given_up_ = true;
  if (!is_committing_ && !cancel_.valid()) {
    cancel_ = cancel_statement(left.get());
    if (cancel_.valid()) cancel_.wait_for(longest_way);
  }
  cancel_ = {};
  constexpr linger none{1, 0};
  ::setsockopt(PQsocket(left.get()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
  lose("the server gives no answer");
}

}  // namespace ADODB
