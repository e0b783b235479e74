#include "tools/forms/frmFind.h"

#include <algorithm>

#include "ui/HelpContext.h"
#include "ui/Prompter.h"
#include "ui/ShowHelp.h"

namespace tools {

namespace {

constexpr const char* title = "Find";

} // namespace

frmFind::frmFind(ui::Window& owner, FindHost& host, Text& lastFindText)
    : Window(Kind::dialog, windowName, &owner), host_(host), lastFindText_(lastFindText) {
    setCaption(title);
    auto options = ui::Layout::column();
    options.add(optInvSearch[0]).add(optInvSearch[1]);
    fraOptions.setLayout(std::move(options));
    auto boxes = ui::Layout::column();
    boxes.withoutMargins().add(chkMatchCase).add(chkWholeWords).addStretch();
    auto choices = ui::Layout::row();
    choices.withoutMargins().add(std::move(boxes)).addStretch().add(fraOptions);
    auto left = ui::Layout::column();
    left.withoutMargins()
        .add(lblFind)
        .add(txtFind)
        .addSpace(60)
        .add(std::move(choices))
        .addStretch();
    auto buttons = ui::Layout::column();
    buttons.withoutMargins().add(cmdFindNext).add(cmdCancel).add(cmdHelp).addStretch();
    auto content = ui::Layout::row();
    content.add(std::move(left), 1).addSpace(90).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(7200, 2250);
    optInvSearch[0].select();
    setHelpContext(ui::findHelp);
    cmdFindNext.setDefault();
    UI_ON(txtFind, Change);
    UI_ON(cmdFindNext, Click);
    UI_ON(cmdCancel, Click);
    UI_ON(cmdHelp, Click);
    txtFind.setText(lastFindText_);
    cmdFindNext.setEnabled(!lastFindText_.empty());
    txtFind.selectAll();
    txtFind.setFocus();
}

void frmFind::ask() {
    activate();
    txtFind.setFocus();
    txtFind.selectAll();
}

void frmFind::includeBodies() {
    if (!optInvSearch[1].selected()) {
        optInvSearch[1].select();
        finder_.restart();
    }
}

/// Below the place or above it, whichever has room; the sides would often have none.
void frmFind::uncover(const ui::ScreenPlace& place) {
    constexpr int frame = 600; // more than any title bar or frame
    const bool beside = left() >= place.left + place.width || left() + width() + frame <= place.left
                        || top() >= place.top + place.height
                        || top() + height() + frame <= place.top;
    if (beside) {
        return;
    }
    const int below = place.top + place.height + frame / 2;
    const bool fits = below + height() + frame <= screenHeight();
    setPosition(left(), fits ? below : std::max(place.top - height() - frame, 0));
}

void frmFind::txtFind_Change() {
    lastFindText_ = txtFind.text();
    cmdFindNext.setEnabled(!lastFindText_.empty());
    finder_.restart();
}

void frmFind::cmdHelp_Click() {
    ui::showHelp(helpContext());
}

void frmFind::cmdFindNext_Click() {
    if (host_.outline().empty()) {
        ui::Prompter::current().ask(this, {"Nothing to Search", title});
        return;
    }
    const FindQuestion question{lastFindText_, chkMatchCase.checked(), chkWholeWords.checked(),
                                optInvSearch[1].selected()};
    if (finder_.next(question, host_) == Finder::Outcome::searched) {
        ui::Prompter::current().ask(this, {finder_.foundAny()
                                               ? "Specified region searched, No more matches"
                                               : "Specified region searched, No matches",
                                           title});
    }
}

} // namespace tools
