#include <exception>
#include <iostream>

#include "app/Batch.h"
#include "platform/Files.h"
#include "platform/Process.h"

int main(int argc, char* argv[]) {
    try {
        platform::turnSizeLimitIntoError();
        platform::useStreamsForUtf8();
        std::ios::sync_with_stdio(false);
        app::Console console(std::cout, std::cerr);
        app::BatchSession session{console, platform::programFolder()};
        return app::runBatch(session, platform::programArguments(argc, argv));
    } catch (const std::exception& exception) {
        // Memory or the standard library's file calls; nothing of ours throws.
        std::cerr << "topicsmith-batch: " << exception.what() << '\n';
        return app::exitFailed;
    }
}
