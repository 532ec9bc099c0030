#include "tools/kestrel/interruption.h"

#include <csignal>

namespace kestrel {

namespace {

// The signal that came, or 0.
volatile std::sig_atomic_t interruption = 0;

extern "C" void RememberInterruption(int signal) { interruption = signal; }

#if defined(_WIN32)

// The system takes the handler away when it calls it.
void Handle(int signal) { static_cast<void>(std::signal(signal, RememberInterruption)); }

#else

void Handle(int signal) {
  struct sigaction action = {};
  if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) {
    action.sa_handler = RememberInterruption;
    // Without SA_RESTART, so that a read that waits ends, too.
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    static_cast<void>(sigaction(signal, &action, nullptr));
  }
}

#endif

}  // namespace

void DeferInterruption() {
  Handle(SIGINT);
  Handle(SIGTERM);
}

bool IsInterrupted() { return interruption != 0; }

void EndIfInterrupted() {
  if (interruption != 0) {
    static_cast<void>(std::raise(interruption));
  }
}

}  // namespace kestrel
