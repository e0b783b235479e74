#include "web/PackedScript.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

/// ASCII as UTF-16.
Text wide(TextView ascii) {
    Text text;
    for (const char letter : ascii) {
        text += letter;
        text += '\0';
    }
    return text;
}

const Text& head() {
    static const Text text = "\xFF\xFE" + wide("topicsmith(\"");
    return text;
}

const Text& tail() {
    static const Text text = wide("\")");
    return text;
}

} // namespace

Text packedScript(TextView bits) {
    Text script;
    script.reserve(head().size() + bits.size() + tail().size());
    text::append(script, head(), bits, tail());
    return script;
}

std::optional<TextView> bitsIn(TextView script) {
    if (!script.starts_with(head()) || !script.ends_with(tail())
        || script.size() < head().size() + tail().size()) {
        return {};
    }
    return script.substr(head().size(), script.size() - head().size() - tail().size());
}

} // namespace web
