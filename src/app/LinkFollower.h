#pragma once

#include "app/CommandHost.h"
#include "model/BranchEditing.h"
#include "model/Project.h"

namespace app {

/// Keeps links from leading nowhere when a topic's page gets another name or goes.
class LinkFollower {
public:
    /// Nothing is owned.
    LinkFollower(CommandHost& host, model::Project& project) : host_(host), project_(project) {}

    /// The current topic's file name is about to be typed into. What it was at first counts.
    void beforeTyping();

    /// The field is left, and its typing not ended yet: asks whether links are to follow, which is
    /// then taken back together with the typing.
    void finishTyping();

    /// The project is another one.
    void forget() { position_ = 0; }

    /// Names the links that will lead nowhere without some topics, if there are any. False when the
    /// author would rather keep the topics.
    bool mayDelete(const model::Positions& topics);

private:
    bool hasOldPage(int exceptFor) const;

    CommandHost& host_;
    model::Project& project_;
    int position_ = 0; ///< of the topic whose file name is being typed; 0 for none
    text::Text oldName_;
};

} // namespace app
