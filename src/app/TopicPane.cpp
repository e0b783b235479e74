#include "app/TopicPane.h"

#include "editor/PreviewPage.h"
#include "ui/Application.h"
#include "ui/Prompter.h"

namespace app {

using text::Text;

namespace {

constexpr const char* section = "Main";
constexpr const char* wantedKey = "Topic Pane";
constexpr const char* editsHereKey = "Edit Beside";
constexpr const char* editorHeightKey = "Editor Height";
constexpr int usualEditorHeight = 5400;

} // namespace

TopicPane::TopicPane(ui::Container& container, model::Project& project, TopicEditor& editor,
                     ui::Settings& settings)
    : Panel(container), project_(project), editor_(editor), settings_(settings),
      wanted_(settings.number(section, wantedKey, 1) != 0),
      editsHere_(settings.number(section, editsHereKey, 0) != 0) {
    auto content = ui::Layout::column();
    content.withoutMargins().add(splParts, 1);
    setLayout(std::move(content));
    pnlEditor.setVisible(false);
    setVisible(false);
    UI_ON(tmrPage, Tick);
    editor_.Changed.connect([this] { topicChanged(); });
    editor_.CaretMoved.connect([this] { topicChanged(); });
    editor_.ClosedByPerson.connect([this] {
        if (editor_.dock() != nullptr) {
            setEditsHere(false);
            EditorLeft.raise();
        }
    });
}

void TopicPane::setWanted(bool wanted) {
    wanted_ = wanted;
    settings_.setNumber(section, wantedKey, wanted ? 1 : 0);
}

void TopicPane::setShown(bool shown) {
    if (shown_ != shown) {
        shown_ = shown;
        setVisible(shown);
        editor_.setDock(hasEditor() ? &pnlEditor : nullptr);
        topicShown();
    }
}

void TopicPane::setEditsHere(bool here) {
    storeSettings();
    editsHere_ = here;
    settings_.setNumber(section, editsHereKey, here ? 1 : 0);
    editor_.setDock(hasEditor() ? &pnlEditor : nullptr);
    topicShown();
}

void TopicPane::storeSettings() {
    if (pnlEditor.isShown()) {
        settings_.setNumber(section, editorHeightKey, splParts.firstWidth());
    }
}

void TopicPane::topicChanged() {
    if (shown_) {
        tmrPage.start(typingPause);
    }
}

void TopicPane::tmrPage_Tick() {
    if (shown_) {
        makeRoomForEditor();
        if (pnlEditor.isShown() && !editor_.isOpen()) {
            editor_.show(); // it belongs to one topic, so there is a new one for each
        }
        showPage();
    }
}

void TopicPane::makeRoomForEditor() {
    const bool here = hasEditor() && project_.currentIndex() > 0;
    if (here != pnlEditor.isShown()) {
        pnlEditor.setVisible(here);
        splParts.setFirstWidth(settings_.number(section, editorHeightKey, usualEditorHeight));
    }
}

/// The first page, be it empty, comes with the pane: on many systems the window is made anew for
/// the browser, which would swallow what is being typed into a first topic.
void TopicPane::showPage() {
    const int position = project_.currentIndex();
    const std::filesystem::path folder =
        project_.hasFile() ? project_.projectPath().parent_path() : std::filesystem::path();
    Text page;
    if (position > 0) {
        const editor::frmEditBody* open = editor_.isOpen() ? editor_.window() : nullptr;
        const model::Topic& topic = project_.outline().at(position);
        page = open == nullptr
                   ? editor::livePage(topic.title, topic.body, project_.options(), folder)
                   : open->livePage(folder);
    }
    const Text id = std::to_string(position) + ' ' + project_.projectFileTitle();
    if (page == page_ && id == topicId_) {
        return;
    }
    if (brwTopic_ == nullptr) {
        brwTopic_ = std::make_unique<ui::Browser>(pnlPage);
        brwTopic_->setAccessibleName("Topic Preview");
        brwTopic_->Refused.connect([] { ui::Prompter::current().beep(); });
        brwTopic_->Clicked.connect([this](std::size_t seen, bool behind) {
            if (editor_.isOpen()) {
                editor_.window()->goToSeen(seen, behind);
            }
        });
        brwTopic_->keepInView(editor::caretId);
        auto content = ui::Layout::column();
        content.withoutMargins().add(*brwTopic_, 1);
        pnlPage.setLayout(std::move(content));
    }
    const std::filesystem::path file = ui::Application::ownPageFile();
    if (!file_.write(file, page)) {
        brwTopic_->navigate(
            file, folder, id == topicId_ ? ui::Browser::Place::asBefore : ui::Browser::Place::top);
        page_ = std::move(page);
        topicId_ = id;
    }
}

} // namespace app
