#pragma once

#include <string>

namespace workshop {

enum class Severity {
    note,    ///< worth knowing
    warning, ///< the help will lack something, or show it otherwise than meant
    error    ///< no help comes out
};

/// As compilers call it.
constexpr const char* nameOf(Severity severity) {
    switch (severity) {
    case Severity::note:
        return "note";
    case Severity::warning:
        return "warning";
    case Severity::error:
        break;
    }
    return "error";
}

/// What the author of some input has to be told, as compilers do it.
struct Message {
    std::string file; ///< in UTF-8
    int line = 0;     ///< from 1; 0 for the file as a whole
    Severity severity = Severity::warning;
    std::string text; ///< without a full stop
};

} // namespace workshop
