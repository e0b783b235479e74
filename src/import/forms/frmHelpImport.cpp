#include "import/forms/frmHelpImport.h"

#include <algorithm>

#include "import/ImportOutcome.h"
#include "import/PageHeadings.h"
#include "text/Path.h"
#include "ui/HelpContext.h"
#include "ui/ShowHelp.h"
#include "ui/WaitCursor.h"

namespace importer {

using text::Text;

namespace {

enum PlanColumn { titleColumn, pageColumn, sizeColumn };

/// "1.4 KB"; empty for nothing.
Text shownSize(std::uint64_t bytes) {
    constexpr std::uint64_t kilobyte = 1024;
    const std::uint64_t tenths = (bytes * 10 + kilobyte - 1) / kilobyte;
    return bytes == 0 ? Text()
                      : std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " KB";
}

} // namespace

Text PlanRows::cell(int row, int column) const {
    const PlannedTopic& topic = at(row);
    switch (column) {
    case pageColumn:
        return !topic.link.empty() ? topic.link
               : topic.anchor.empty() || isMadePlace(topic.anchor)
                   ? topic.page
                   : topic.page + '#' + topic.anchor;
    case sizeColumn: // nobody has measured parts
        return topic.anchor.empty() ? shownSize(topic.size) : Text();
    default:
        return topic.title;
    }
}

int PlanRows::indent(int row, int column) const {
    return column == titleColumn ? ui::indentOfLevel(at(row).depth) : -1;
}

int PlanRows::endOfBranch(int row) const {
    int end = row + 1;
    while (end <= rowCount() && at(end).depth > at(row).depth) {
        ++end;
    }
    return end;
}

frmHelpImport::frmHelpImport(ui::Window& owner, std::unique_ptr<HelpSource> source, Target target)
    : Window(Kind::dialog, "frmHelpImport", &owner), source_(std::move(source)),
      lvTopics(pnlTopics, {{"Topic Title", 4200}, {"Page", 2700}, {"Size", 1000}}, rows_),
      target_(std::move(target)) {
    setCaption("Import from \"" + source_->title + "\"");
    setHelpContext(ui::helpImportHelp);
    rows_.plan = planImport(*source_, false);
    lvTopics.rowsReplacing();
    lvTopics.rowsReplaced();
    chkRepeated.setChecked(true);
    chkRepeated.setVisible(source_->hasNavigation);
    if (!source_->parts.empty()) {
        chkCut.setEnabled(source_->parts.size() > source_->contents.size());
    }
    chkUnder.setEnabled(target_.current() > 0);
    arrange();
    connectControls();
    lvTopics.setFocus();
    lvTopics.select(1);
    lvTopics_ItemClick(1);
    showCount();
}

frmHelpImport::~frmHelpImport() = default;

void frmHelpImport::arrange() {
    lvTopics.setAccessibleName("Topics to Import");
    brwPage.setAccessibleName("Page");
    cmdOK.setDefault();
    auto list = ui::Layout::column();
    list.withoutMargins().add(lvTopics, 1);
    pnlTopics.setLayout(std::move(list));
    auto ticks = ui::Layout::row();
    ticks.withoutMargins().add(cmdAll).add(cmdNone).add(cmdBranch).addStretch();
    auto buttons = ui::Layout::row();
    buttons.withoutMargins().add(lblCount, 1).add(cmdOK).add(cmdCancel).add(cmdHelp);
    auto content = ui::Layout::column();
    content.add(lblTopics)
        .add(splParts, 1)
        .add(std::move(ticks))
        .add(chkRepeated)
        .add(chkCut)
        .add(chkUnder)
        .add(std::move(buttons));
    setLayout(std::move(content));
    setMinimumSize(8400, 6000);
    constexpr int frame = 900; // of the system, and a bar of its own
    const int width = std::min(14400, screenWidth());
    setSize(width, std::min(9000, screenHeight() - frame));
    splParts.setFirstWidth(width * 7 / 12);
}

void frmHelpImport::connectControls() {
    UI_ON(lvTopics, ItemClick);
    UI_ON(lvTopics, ItemCheck);
    UI_ON(cmdAll, Click);
    UI_ON(cmdNone, Click);
    UI_ON(cmdBranch, Click);
    UI_ON(chkCut, Click);
    UI_ON(cmdOK, Click);
    UI_ON(cmdCancel, Click);
    UI_ON(cmdHelp, Click);
}

std::optional<std::string> frmHelpImport::read(const std::string& path) {
    constexpr text::TextView byteOrderMark = "\xEF\xBB\xBF";
    const auto found =
        source_->find(withoutAnchor(text::TextView(path).substr(path.empty() ? 0 : 1)));
    if (!found) {
        return {};
    }
    if (!text::isPageName(*found)) {
        return source_->read(*found);
    }
    const auto html = source_->readText(*found);
    return html ? std::optional(Text(byteOrderMark) + *html) : std::nullopt;
}

void frmHelpImport::lvTopics_ItemClick(int row) {
    const bool isThere = row >= 1 && row <= rows_.rowCount();
    cmdBranch.setEnabled(isThere);
    if (isThere && !rows_.at(row).page.empty()) {
        const PlannedTopic& topic = rows_.at(row);
        brwPage.show('/' + topic.page + (topic.anchor.empty() ? Text() : '#' + topic.anchor));
    }
}

/// A box stands for what lies below its row, too.
void frmHelpImport::lvTopics_ItemCheck(int row) {
    checkRows(row, rows_.endOfBranch(row), !rows_.at(row).isWanted);
}

void frmHelpImport::cmdBranch_Click() {
    if (const int row = lvTopics.selected(); row >= 1) {
        checkRows(1, rows_.rowCount() + 1, false);
        checkRows(row, rows_.endOfBranch(row), true);
    }
}

void frmHelpImport::checkRows(int from, int to, bool checked) {
    for (int row = from; row < to; ++row) {
        if (rows_.at(row).isWanted != checked) {
            rows_.at(row).isWanted = checked;
            lvTopics.rowChanged(row);
        }
    }
    showCount();
}

/// There are other topics then, all of which are wanted.
void frmHelpImport::chkCut_Click() {
    const ui::WaitCursor busy;
    lvTopics.rowsReplacing();
    rows_.plan = planImport(*source_, chkCut.checked());
    lvTopics.rowsReplaced();
    lvTopics.select(1);
    lvTopics_ItemClick(1);
    showCount();
}

void frmHelpImport::showCount() {
    const std::size_t wanted = wantedCount(rows_.plan);
    const auto room = static_cast<std::size_t>(target_.room);
    Text text = counted(wanted, "topic");
    text::append(text, " of ", std::to_string(rows_.plan.topics.size()), " checked");
    if (wanted > room) {
        text::append(text, ": a project holds ", std::to_string(model::TopicOutline::maxTopics),
                     " topics, and the last ", std::to_string(wanted - room), " will be left out");
    }
    text.front() = text::upperCase(text.substr(0, 1)).front();
    lblCount.setCaption(text);
    cmdOK.setEnabled(wanted > 0 && room > 0);
}

void frmHelpImport::cmdOK_Click() {
    Chosen.raise({chkUnder.checked() ? target_.current() : 0, chkRepeated.checked()});
}

void frmHelpImport::cmdHelp_Click() {
    ui::showHelp(helpContext());
}

} // namespace importer
