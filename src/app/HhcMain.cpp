#include "app/BatchCompile.h"
#include "app/BatchStart.h"

int main(int argc, char* argv[]) {
    return app::startBatch(argc, argv, app::hhcFailed, app::runLikeWorkshop);
}
