#include <cstdio>
#include <string>

#include "SampleProject.h"
#include "model/ProjectFile.h"

/// make_sample_project TOPICS BODY_BYTES FILE
int main(int argc, char* argv[]) {
    if (argc != 4) {
        std::fputs("usage: make_sample_project TOPICS BODY_BYTES FILE\n", stderr);
        return 2;
    }
    model::Project project;
    project.replace(bench::sampleOutline(std::stoi(argv[1]), std::stoul(argv[2])),
                    bench::sampleOptions(), argv[3]);
    const std::error_code error = model::saveProject(project, argv[3]);
    if (error) {
        std::fprintf(stderr, "%s: %s\n", argv[3], error.message().c_str());
    }
    return error ? 1 : 0;
}
