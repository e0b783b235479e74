#pragma once

#include <gtest/gtest.h>
#include <sstream>

#include "batch/Batch.h"
#include "support/TestFiles.h"

namespace test {

/// Runs commands of the batch program in a folder of the test's own.
class Batch : public ::testing::Test {
protected:
    batch::ExitCode run(const batch::Arguments& arguments) {
        std::ostringstream out;
        std::ostringstream err;
        batch::Console console(out, err);
        batch::BatchSession session{console, programFolder};
        session.patience = patience;
        const batch::ExitCode code = runBatch(session, arguments);
        output = out.str();
        errors = err.str();
        return code;
    }

    std::string save(const std::filesystem::path& name, const model::TopicOutline& outline,
                     const model::ProjectOptions& options = {}) {
        writeBytes(folder / name, test::projectFile(outline, options));
        return folder / name;
    }

    TemporaryFolder folder;
    std::filesystem::path programFolder = test::programFolder();
    std::chrono::milliseconds patience = std::chrono::seconds(10);
    std::string output;
    std::string errors;
};

} // namespace test
