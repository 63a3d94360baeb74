// Ctrl-C while an account set is being made.
#pragma once

#include <exception>

namespace salerpt::shell {

// Raised by InterruptGuard::Check; whoever holds half-made files removes them on its way out.
class Interrupted : public std::exception {
 public:
  explicit Interrupted(int signal) : signal_(signal) {}
  [[nodiscard]] int Signal() const { return signal_; }
  [[nodiscard]] const char* what() const noexcept override { return "interrupted"; }

 private:
  int signal_;
};

// While it lives, the first Ctrl-C (or request to terminate) is only noted, so that the work can end in
// order; a second one ends the program at once. One at a time.
class InterruptGuard {
 public:
  InterruptGuard();
  ~InterruptGuard();
  InterruptGuard(const InterruptGuard&) = delete;
  InterruptGuard& operator=(const InterruptGuard&) = delete;

  // Raises Interrupted where a signal came.
  static void Check();
};

}  // namespace salerpt::shell
