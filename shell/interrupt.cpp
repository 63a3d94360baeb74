#include "shell/interrupt.h"

#include <array>
#include <csignal>

namespace salerpt::shell {
namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

// The one mutable global: a signal handler can reach nothing else.
volatile std::sig_atomic_t noted_signal = 0;

void Note(int signal) {
  noted_signal = signal;
}

void Install(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  // Back to the usual effect after the first one; reads and writes under way go on.
  action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

InterruptGuard::InterruptGuard() {
  noted_signal = 0;
  Install(Note);
}

InterruptGuard::~InterruptGuard() {
  Install(SIG_DFL);
}

void InterruptGuard::Check() {
  if (noted_signal != 0) throw Interrupted(noted_signal);
}

}  // namespace salerpt::shell
