#include <exception>
#include <iostream>

#include "app/Batch.h"
#include "platform/Files.h"

int main(int argc, char* argv[]) {
    try {
        platform::turnSizeLimitIntoError();
        std::ios::sync_with_stdio(false);
        app::Console console(std::cout, std::cerr);
        app::BatchSession session{console, platform::programFolder()};
        return app::runBatch(session, app::Arguments(argv + 1, argv + argc));
    } catch (const std::exception& exception) {
        // Memory or the standard library's file calls; nothing of ours throws.
        std::cerr << "topicsmith-batch: " << exception.what() << '\n';
        return app::exitFailed;
    }
}
