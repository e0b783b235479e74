#include "help/forms/frmHelp.h"

#include "help/ContentsPlace.h"
#include "help/HitMarks.h"
#include "platform/Files.h"
#include "text/Path.h"
#include "ui/HelpContext.h"
#include "ui/Prompter.h"
#include "ui/WaitCursor.h"
#include "ui/WindowPlace.h"

namespace help {

namespace fs = std::filesystem;
using ui::Prompter;

namespace {

constexpr const char* section = "Help";
constexpr const char* partWidthKey = "Contents Width";
constexpr int usualPartWidth = 4500;
constexpr int indexPage = 1;
constexpr int searchPage = 2;

} // namespace

frmHelp::frmHelp(ui::Settings& settings) : Window(Kind::main, windowName), settings_(settings) {
    setCaption("Help");
    setHelpContext(ui::helpWindowHelp);
    arrange();
    connectControls();
    commands_.fillToolbar(tbTools, helpToolbarKeys());
    tvContents.setFocus();
    commands_.update();
}

frmHelp::~frmHelp() {
    // What the controls would still tell as they go.
    brwPage.Moved.disconnect();
    txtIndex.GotFocus.disconnect();
    txtSearch.GotFocus.disconnect();
}

text::Message unreadableMessage(const fs::path& file) {
    const char* problem = platform::isFile(file) ? "The help file cannot be opened:\n"
                                                 : "The help file is missing:\n";
    return {problem + text::displayText(file), "HTML Topicsmith", text::MessageIcon::exclamation};
}

// ---- The window ----

void frmHelp::arrange() {
    setMinimumSize(7500, 4500);
    if (settings_.get(section, "Left").empty()) {
        settings_.setNumber(section, "Left", screenWidth()); // beside what it is about
    }
    ui::restorePlace(*this, settings_, section, 14400, 9900);
    tvContents.setAccessibleName("Contents");
    tvIndex.setAccessibleName("Keywords");
    tvFound.setAccessibleName("Topics Found");
    brwPage.setAccessibleName("Page");
    lblFound.setShortened();

    auto contents = ui::Layout::column();
    contents.add(tvContents, 1);
    pnlContents.setLayout(std::move(contents));

    auto index = ui::Layout::column();
    index.add(lblIndex).add(txtIndex).add(tvIndex, 1);
    pnlIndex.setLayout(std::move(index));

    auto question = ui::Layout::row();
    question.withoutMargins().add(txtSearch, 1).add(cmdSearch);
    auto search = ui::Layout::column();
    search.add(lblSearch).add(std::move(question)).add(tvFound, 1).add(lblFound);
    pnlSearch.setLayout(std::move(search));

    tbsFind.setAccessibleName("Ways to a Page");
    tbsFind.add("&Contents", "The topics in their order", pnlContents);
    tbsFind.add("&Index", "Topics by their keywords", pnlIndex);
    tbsFind.add("&Search", "Topics by the words in them", pnlSearch);
    splParts.setFirstWidth(settings_.number(section, partWidthKey, usualPartWidth));
}

void frmHelp::connectControls() {
    UI_ON(tvContents, ItemClick);
    UI_ON(tvContents, DblClick);
    UI_ON(txtIndex, Change);
    UI_ON(txtIndex, GotFocus);
    UI_ON(txtIndex, KeyDown);
    UI_ON(tvIndex, ItemClick);
    UI_ON(tvIndex, DblClick);
    UI_ON(txtSearch, GotFocus);
    UI_ON(txtSearch, KeyDown);
    UI_ON(cmdSearch, Click);
    UI_ON(tvFound, ItemClick);
    tvFound.DblClick.connect([this](int item) { tvFound_ItemClick(item); });
    UI_ON(brwPage, Moved);
    UI_ON(brwPage, OutsideClick);
    UI_ON(tbsFind, Click);
}

void frmHelp::Resize() {
    constexpr int margin = 60;
    const int top = contentTop();
    splParts.place(margin, 0, width() - 2 * margin, height() - top - margin);
}

bool frmHelp::mayClose() {
    ui::storePlace(*this, settings_, section);
    settings_.setNumber(section, partWidthKey, splParts.firstWidth());
    return true;
}

// ---- The help file ----

bool frmHelp::openBook(const fs::path& file) {
    std::unique_ptr<HelpBook> book;
    {
        const ui::WaitCursor busy;
        book = HelpBook::open(file);
    }
    if (book == nullptr) {
        return false;
    }
    book_ = std::move(book);
    setCaption(book_->title() + " - Help");
    brwPage.reset();
    fillContents();
    tvIndex.setItems({});
    indexFilled_ = false;
    tvFound.setItems({});
    found_.clear();
    lblFound.setCaption("");
    txtIndex.setText("");
    txtSearch.setText("");
    tbsFind_Click();
    go(book_->homePage());
    commands_.update();
    if (!book_->isWhole()) {
        Prompter::current().ask(this, {"Parts of this help file are damaged and cannot be shown.",
                                       "HTML Topicsmith", ui::Buttons::ok,
                                       ui::QuestionIcon::exclamation});
    }
    return true;
}

void frmHelp::mnuReload_Click() {
    const std::string page = brwPage.shown();
    const fs::path file = book_->path();
    openBook(file) ? go(page) : tellUnreadable(file);
}

void frmHelp::mnuPrint_Click() {
    if (!brwPage.print()) {
        Prompter::current().ask(this, {"The page could not be printed.", "HTML Topicsmith",
                                       ui::Buttons::ok, ui::QuestionIcon::exclamation});
    }
}

void frmHelp::fillContents() {
    std::vector<ui::TreeItem> items;
    for (const ContentsEntry& entry : book_->contents()) {
        items.push_back({entry.depth, entry.target.title});
    }
    tvContents.setItems(items);
}

/// A keyword of several topics has a row for each of them below it.
void frmHelp::fillIndex() {
    indexFilled_ = true;
    indexTargets_.clear();
    indexRows_.clear();
    std::vector<ui::TreeItem> items;
    for (const IndexEntry& entry : book_->index()) {
        items.push_back({1, entry.keyword});
        indexTargets_.push_back(entry.targets.front());
        indexRows_.push_back(static_cast<int>(items.size()));
        for (std::size_t i = 0; entry.targets.size() > 1 && i < entry.targets.size(); ++i) {
            items.push_back({2, entry.targets[i].title});
            indexTargets_.push_back(entry.targets[i]);
        }
    }
    tvIndex.setItems(items);
    tvIndex.unfoldAll();
}

std::optional<std::string> frmHelp::read(const std::string& path) {
    auto bytes = book_ == nullptr ? std::nullopt : book_->read(path);
    return bytes && path == markedPage_ ? withHitsMarked(*bytes, question_) : bytes;
}

/// Shows a page of the help, or leads elsewhere.
void frmHelp::go(const std::string& page, const std::string& marked) {
    if (page.empty()) {
        return;
    }
    if (!page.starts_with('/')) {
        brwPage_OutsideClick(page);
        return;
    }
    markedPage_ = marked.empty() ? std::string() : withoutAnchor(page);
    brwPage.mark(marked);
    brwPage.show(page);
}

/// For who walks through a list: what leads elsewhere wants a double-click or Enter.
void frmHelp::goWithin(const std::string& page) {
    if (page.starts_with('/')) {
        go(page);
    }
}

void frmHelp::showContext(unsigned number) {
    const std::string page = book_->pageOfContext(number);
    go(page.empty() ? book_->homePage() : page);
    tbsFind.select(0);
}

void frmHelp::showPage(const std::string& path) {
    go(book_->read(path) ? path : book_->homePage());
    tbsFind.select(0);
}

void frmHelp::showIndex() {
    tbsFind.select(indexPage);
    tbsFind_Click();
    txtIndex.setFocus();
}

// ---- What the reader does ----

void frmHelp::tvContents_ItemClick(int item) {
    goWithin(book_->contents()[static_cast<std::size_t>(item) - 1].target.page);
}

void frmHelp::tvContents_DblClick(int item) {
    go(book_->contents()[static_cast<std::size_t>(item) - 1].target.page);
}

/// The index needs all pages, so it is made when it is first shown.
void frmHelp::tbsFind_Click() {
    if (tbsFind.selected() == indexPage && hasBook() && !indexFilled_) {
        const ui::WaitCursor busy;
        fillIndex();
    }
    if (!tbsFind.hasFocus()) { // whoever walks over the tabs with keys is to stay there
        ui::Control* const controls[] = {&tvContents, &txtIndex, &txtSearch};
        controls[tbsFind.selected()]->setFocus();
    }
}

void frmHelp::txtIndex_GotFocus() {
    txtIndex.selectAll();
}

void frmHelp::txtSearch_GotFocus() {
    txtSearch.selectAll();
}

void frmHelp::txtIndex_Change() {
    if (!hasBook()) {
        return;
    }
    const std::size_t entry = firstFrom(book_->index(), txtIndex.text());
    tvIndex.select(entry < indexRows_.size() ? indexRows_[entry] : 0, ui::TreeView::Place::atTop);
}

void frmHelp::txtIndex_KeyDown(ui::Key& key) {
    if (key.code == ui::KeyCode::enter && tvIndex.selected() > 0) {
        tvIndex_DblClick(tvIndex.selected());
        key.handled = true;
    } else if (key.code == ui::KeyCode::down && key.plain()) {
        tvIndex.setFocus();
        key.handled = true;
    }
}

void frmHelp::tvIndex_ItemClick(int item) {
    goWithin(indexTargets_[static_cast<std::size_t>(item) - 1].page);
}

void frmHelp::tvIndex_DblClick(int item) {
    go(indexTargets_[static_cast<std::size_t>(item) - 1].page);
}

void frmHelp::txtSearch_KeyDown(ui::Key& key) {
    if (key.code == ui::KeyCode::enter) { // a second one opens what the first has found
        const bool isAnswered = txtSearch.text() == asked_ && tvFound.selected() > 0;
        isAnswered ? tvFound_ItemClick(tvFound.selected()) : cmdSearch_Click();
        key.handled = true;
    } else if (key.code == ui::KeyCode::down && key.plain()) {
        tvFound.setFocus();
        key.handled = true;
    }
}

void frmHelp::cmdSearch_Click() {
    if (!hasBook()) {
        return;
    }
    asked_ = txtSearch.text();
    question_ = HelpQuestion(asked_);
    {
        const ui::WaitCursor busy;
        found_ = book_->search(question_);
    }
    std::vector<ui::TreeItem> items;
    for (const HelpTarget& target : found_) {
        items.push_back({1, target.title});
    }
    tvFound.setItems(items);
    tvFound.select(items.empty() ? 0 : 1);
    markedPage_.clear();
    brwPage.mark("");
    lblFound.setCaption(question_.words().empty() ? ""
                        : items.size() == 1       ? "1 topic found"
                                                  : std::to_string(items.size()) + " topics found");
}

void frmHelp::tvFound_ItemClick(int item) {
    const std::string& page = found_[static_cast<std::size_t>(item) - 1].page;
    go(page, book_->wordOn(page, question_));
}

/// The contents follow the page, wherever it was chosen.
void frmHelp::brwPage_Moved() {
    commands_.update();
    if (hasBook()) {
        tvContents.select(entryOf(book_->contents(), brwPage.shown(), tvContents.selected()));
    }
}

/// A page of another help file beside this one is shown; the web is for another program.
void frmHelp::brwPage_OutsideClick(const std::string& address) {
    if (const auto link = linkToOtherBook(address)) {
        const fs::path file = book_->path().parent_path() / link->file;
        if (openBook(file)) {
            go(link->page);
        } else {
            tellUnreadable(file);
        }
        return;
    }
    for (const char* protocol : {"http:", "https:", "mailto:"}) {
        if (text::startsWithIgnoringCase(address, protocol)) {
            Prompter::current().openAddress(address);
            return;
        }
    }
    Prompter::current().beep();
}

void frmHelp::tellUnreadable(const fs::path& file) {
    Prompter::current().tell(this, unreadableMessage(file));
}

void frmHelp::mnuOpen_Click() {
    const fs::path folder = book_ == nullptr ? fs::path() : book_->path().parent_path();
    const auto file = Prompter::current().chooseFile(
        this, {ui::FileQuestion::Kind::open, "Open Help File",
               "Compiled HTML Help (*.chm)|*.chm|All Files (*.*)|*.*", 1, folder, "*.chm", "chm"});
    if (file && !openBook(*file)) {
        tellUnreadable(*file);
    }
}

void frmHelp::mnuSearch_Click() {
    tbsFind.select(searchPage);
    txtSearch.setFocus();
}

} // namespace help
