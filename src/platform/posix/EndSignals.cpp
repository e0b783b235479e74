#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include "platform/Process.h"

namespace platform {

namespace {

std::array<int, 2> ends{-1, -1}; // of the pipe: out, in
volatile std::sig_atomic_t lastSignal = 0;

void noteSignal(int signal) {
    const int interrupted = errno;
    lastSignal = signal;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(ends[1], &byte, 1);
    errno = interrupted;
}

} // namespace

int catchEndSignals() {
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return -1;
    }
    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction before {};
        // Whoever started the program may want it to go on, as nohup does.
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) {
            sigaction(signal, &action, nullptr);
        }
    }
    return ends[0];
}

void endBySignal() {
    std::signal(lastSignal, SIG_DFL);
    std::raise(lastSignal);
}

} // namespace platform
