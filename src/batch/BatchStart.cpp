#include "batch/BatchStart.h"

#include <exception>
#include <iostream>
#include <new>

#include "platform/Clock.h"
#include "platform/Memory.h"
#include "platform/Process.h"

namespace batch {

int startBatch(int argc, char* argv[], const char* program, int failed,
               int (*run)(BatchSession& session, const Arguments& arguments)) {
    try {
        platform::takeMemoryInLargeSteps();
        platform::turnSizeLimitIntoError();
        platform::useStreamsForUtf8();
        std::ios::sync_with_stdio(false);
        Console console(std::cout, std::cerr);
        BatchSession session{console, platform::programFolder(), program};
        session.sourceTime = platform::sourceTime();
        session.isAtTerminal = platform::isAtTerminal();
        return run(session, platform::programArguments(argc, argv));
    } catch (const std::bad_alloc&) {
        std::cerr << program << ": not enough memory for";
        for (int i = 1; i < argc; ++i) {
            std::cerr << ' ' << argv[i];
        }
        std::cerr << '\n';
        return failed;
    } catch (const std::exception& exception) {
        // Memory or the standard library's file calls; nothing of ours throws.
        std::cerr << program << ": " << exception.what() << '\n';
        return failed;
    }
}

} // namespace batch
