// Events: what a relay, a progress bar or a control raises.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace salerpt {

// Handlers are called in the order in which they were connected, on the thread that raises. A handler may
// connect and disconnect while the event is raised: one that is taken away is not called any more, one that
// is added is called from the next raise on.
template <typename... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;
  using Token = std::uint32_t;

  // The handler is called at each raise from the next one on. The token takes it away again.
  Token Connect(Handler handler) {
    handlers_.push_back({++last_, std::move(handler)});
    return last_;
  }
  // A token that is not connected, or no more, is left alone.
  void Disconnect(Token token) {
    for (Slot& slot : handlers_) {
      if (slot.token == token) slot.handler = nullptr;
    }
  }
  // Calls every handler; an error that one raises goes on to the caller, and the handlers behind it are not
  // called.
  void Raise(Args... args) {
    const std::size_t count = handlers_.size();
    ++depth_;
    const DepthGuard guard{*this};
    for (std::size_t i = 0; i < count; ++i) {
      const Handler handler = handlers_[i].handler;
      if (handler) handler(args...);
    }
  }

 private:
  struct Slot {
    Token token;
    Handler handler;
  };
  struct DepthGuard {
    Event& event;
    ~DepthGuard() {
      if (--event.depth_ == 0) std::erase_if(event.handlers_, [](const Slot& s) { return !s.handler; });
    }
  };

  std::vector<Slot> handlers_;
  Token last_ = 0;
  int depth_ = 0;
};

}  // namespace salerpt
