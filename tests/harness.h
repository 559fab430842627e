#pragma once

#include "test_store.h"
#include "user.h"

namespace harness {

/// Steps to be played later, one after the other.
class user {
 public:
  user& in(const std::string& form, std::function<void()> action) {
    return step([=] {
      harness::in(form);
      act(action);
    });
  }
  user& message(const std::string& text) {
    return step([=] { harness::message(text); });
  }
  user& question(const std::string& text, bool ok) {
    return step([=] { harness::question(text, ok); });
  }
  user& whatever(const std::string&, std::function<void()> action) {
    return step([=] { act(action); });
  }
  void during(const std::function<void()>& modal) {
    play(modal, [this] {
      for (const auto& next : steps_) next();
    });
    steps_.clear();
  }
  void browse(const test_store& store) {
    harness::browse(store, [this] {
      for (const auto& next : steps_) next();
    });
    steps_.clear();
  }

 private:
  user& step(std::function<void()> next) {
    steps_.push_back(std::move(next));
    return *this;
  }
  std::vector<std::function<void()>> steps_;
};

}  // namespace harness
