#include "batch/BatchCompile.h"
#include "batch/BatchStart.h"

int main(int argc, char* argv[]) {
    return batch::startBatch(argc, argv, batch::hhcFailed, batch::runLikeWorkshop);
}
