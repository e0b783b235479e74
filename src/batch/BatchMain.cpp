#include "batch/BatchStart.h"

int main(int argc, char* argv[]) {
    return batch::startBatch(argc, argv, "topicsmith-batch", batch::exitFailed,
                             [](batch::BatchSession& session, const batch::Arguments& arguments) {
                                 return static_cast<int>(batch::runBatch(session, arguments));
                             });
}
