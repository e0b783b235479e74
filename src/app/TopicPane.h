#pragma once

#include <memory>

#include "app/TopicEditor.h"
#include "editor/forms/PreviewFile.h"
#include "ui/Browser.h"
#include "ui/Splitter.h"
#include "ui/Timer.h"

namespace app {

/// Beside the outline: the current topic as it will look, and, while the author wants it there, its
/// editor. It follows the selection at once, and typing after a pause.
class TopicPane : public ui::Panel {
    // Before the parts.
    model::Project& project_;
    TopicEditor& editor_;
    ui::Settings& settings_;

public:
    /// Only the container is no member of the same window; nothing is owned.
    TopicPane(ui::Container& container, model::Project& project, TopicEditor& editor,
              ui::Settings& settings);

    ui::Splitter splParts{*this, ui::Splitter::Direction::stacked};
    ui::Panel pnlEditor{splParts};
    ui::Panel pnlPage{splParts};

    /// Whether the author wants to see it, where there is room for it.
    bool isWanted() const { return wanted_; }
    void setWanted(bool wanted);

    /// As it is at present.
    bool isShown() const { return shown_; }
    void setShown(bool shown);

    /// Whether topics are edited here. The editor must be closed when that changes.
    bool hasEditor() const { return shown_ && editsHere_; }
    void setEditsHere(bool here);

    /// Before the editor is shown here, so that it can take the focus.
    void makeRoomForEditor();

    /// Another topic is shown, or this one has become another; the second is looked at after a
    /// pause, when the author has stopped typing.
    void topicShown() { tmrPage.start(0); }
    void topicChanged();

    ui::Event<> EditorLeft; ///< the author has closed it here

    /// Null before a page is shown.
    ui::Browser* browser() const { return brwTopic_.get(); }

    void storeSettings();

    ui::Timer tmrPage;
    void tmrPage_Tick();

    static constexpr int typingPause = 300; ///< milliseconds

private:
    void showPage();

    std::unique_ptr<ui::Browser> brwTopic_; ///< large, so made when it is first needed
    editor::PreviewFile file_;
    text::Text page_;    ///< that is shown
    text::Text topicId_; ///< which topic's that is
    bool wanted_;
    bool editsHere_;
    bool shown_ = false;
};

} // namespace app
