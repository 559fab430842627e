#include "store/waiting.h"

#include <algorithm>
#include <utility>

namespace ADODB {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds moment(500);
constexpr milliseconds piece(100);

}  // namespace

patience::patience(awaited what, wait_display display, milliseconds limit)
    : what_(what),
      display_(std::move(display)),
      begin_(steady_clock::now()),
      end_(begin_ + limit) {}

milliseconds patience::next_piece() const {
  const auto left = std::chrono::ceil<milliseconds>(end_ - steady_clock::now());
  return std::max(milliseconds(0), display_ ? std::min(left, piece) : left);
}

patience::state patience::look() {
  const auto now = steady_clock::now();
  if (now >= end_) return state::is_over;
  if (!display_ || now - begin_ < moment) return state::waits;
  // An exception would leave the command, and with it the connection, half done.
  try {
    if (!shown_) shown_ = display_(what_);
    return shown_->goes_on() ? state::waits : state::was_ended_by_user;
  } catch (...) {
    return state::was_ended_by_user;
  }
}

void patience::go_on_unseen(milliseconds limit) {
  shown_.reset();
  display_ = nullptr;
  end_ = steady_clock::now() + limit;
}

}  // namespace ADODB
