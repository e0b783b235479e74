#include "app/BatchStart.h"

int main(int argc, char* argv[]) {
    return app::startBatch(argc, argv, app::exitFailed,
                           [](app::BatchSession& session, const app::Arguments& arguments) {
                               return static_cast<int>(app::runBatch(session, arguments));
                           });
}
