#include "batch/BatchCompile.h"
#include "batch/BatchStart.h"

int main(int argc, char* argv[]) {
    return batch::startBatch(argc, argv, "topicsmith-hhc", batch::hhcFailed,
                             batch::runLikeWorkshop);
}
