#pragma once

namespace app {

/// "topicsmith --pdf PROJECT.tsp OUT.pdf": the program as one without a window, for scripts. Ends
/// with the batch program's codes.
int runPdfProgram(int argc, char* argv[]);

} // namespace app
