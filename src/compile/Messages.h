#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "workshop/Message.h"

namespace compile {

/// Where something stands in the input.
struct Place {
    std::string file; ///< as messages name it
    int line = 0;     ///< from 1; 0 for the file as a whole
};

/// What there is to tell about the input. A text is said once for each file.
class Messages {
public:
    void add(workshop::Severity severity, const Place& place, const std::string& text) {
        if (said_.emplace(place.file, text).second) {
            all_.push_back({place.file, place.line, severity, text});
            hasWarning_ = hasWarning_ || severity != workshop::Severity::note;
            hasError_ = hasError_ || severity == workshop::Severity::error;
        }
    }
    void note(const Place& place, const std::string& text) {
        add(workshop::Severity::note, place, text);
    }
    void warn(const Place& place, const std::string& text) {
        add(workshop::Severity::warning, place, text);
    }
    void fail(const Place& place, const std::string& text) {
        add(workshop::Severity::error, place, text);
    }

    bool hasWarning() const { return hasWarning_; } ///< or an error
    bool hasError() const { return hasError_; }
    std::vector<workshop::Message> take() { return std::move(all_); }

private:
    std::vector<workshop::Message> all_;
    std::set<std::pair<std::string, std::string>> said_; ///< files and texts
    bool hasWarning_ = false;
    bool hasError_ = false;
};

} // namespace compile
