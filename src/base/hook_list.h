// A list of callbacks that a later subsystem fills: the shell calls every
// one in the order added. Empty until a subsystem adds its own.
#pragma once

#include <functional>
#include <utility>
#include <vector>

template <typename... Args>
class HookList {
 public:
  void Add(std::function<void(Args...)> hook) { hooks_.push_back(std::move(hook)); }
  void Clear() { hooks_.clear(); }
  void Run(Args... args) const {
    for (const auto& hook : hooks_) hook(args...);
  }

 private:
  std::vector<std::function<void(Args...)>> hooks_;
};
