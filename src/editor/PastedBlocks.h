#pragma once

#include <memory>
#include <vector>

#include "editor/Passage.h"

/// A text from elsewhere on its way into a body: blocks that hold blocks, and runs of text that all
/// look alike. Only what an author would write by hand has a place here.
namespace editor {

/// How a run of text looks.
struct RunFormat {
    Text link; ///< the address as it is to stand in the body; empty for none
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    bool struck = false;
    bool code = false;
    bool lowered = false;
    bool raised = false;

    bool operator==(const RunFormat&) const = default;
};

struct PastedPicture {
    Text source; ///< as it is to stand in the body
    Text alternative;
    Text width; ///< digits, or empty
    Text height;
};

/// A block, or a run where `tag` is empty.
struct PastedNode {
    enum class Kind { block, text, newLine, picture, place };

    Kind kind = Kind::block;
    Text tag;
    int columns = 1; ///< of a cell
    int rows = 1;
    std::vector<PastedNode> children;

    Text text; ///< without mark-up or references; the name of a place
    RunFormat format;
    std::unique_ptr<PastedPicture> picture; ///< few nodes have one, and a long text many nodes

    bool is(TextView name) const { return kind == Kind::block && tag == name; }
};

/// Whether a block holds runs and no blocks; all others hold blocks only.
bool holdsRuns(TextView tag);

/// How new tables begin.
inline constexpr TextView tableStart = "<table border='1' cellpadding='6'>";

/// The mark-up of what lies in a root block. A root of one paragraph gives what is in it, for the
/// middle of a sentence.
Text markUpOf(const PastedNode& root);

/// The same with tags around every paragraph, for a whole text.
Text blocksOf(const PastedNode& root);

} // namespace editor
