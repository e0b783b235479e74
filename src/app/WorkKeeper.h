#pragma once

#include <chrono>

#include "app/CommandHost.h"
#include "app/ProjectSession.h"
#include "app/Recovery.h"
#include "app/TopicEditor.h"
#include "ui/Timer.h"

namespace app {

/// Keeps unsaved work, that of the open editor too, for a restart of the program, and offers what
/// was left of an earlier run.
class WorkKeeper {
public:
    /// Nothing is owned. What is kept lies in the folder.
    WorkKeeper(CommandHost& host, model::Project& project, ProjectSession& session,
               TopicEditor& editor, const std::filesystem::path& folder);

    /// The work is another; it is kept after a pause, or at last while there is none.
    void note();

    /// Keeps it at once, or forgets it when there is nothing to save.
    void keep();

    /// All of it is saved or not wanted, and there will be no more.
    void stop();

    /// Asks whether unsaved work of an earlier run is wanted, and keeps that of this run from now
    /// on. True when work came back.
    bool offer();

    ui::Timer tmrRecovery;
    void tmrRecovery_Tick() { keep(); }

private:
    ui::Answer decide(const Recovery::Work& work, const model::ParsedProject& parsed);
    void bringBack(const Recovery::Work& work, model::ParsedProject parsed);

    CommandHost& host_;
    model::Project& project_;
    ProjectSession& session_;
    TopicEditor& editor_;
    Recovery recovery_;
    bool isKeeping_ = false; ///< not while work of an earlier run is in question
    std::chrono::steady_clock::time_point oldest_; ///< the first edit that is not kept yet
};

} // namespace app
