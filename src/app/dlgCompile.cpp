#include "app/dlgCompile.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/Path.h"
#include "ui/HelpContext.h"

namespace app {

namespace {

constexpr int pollMilliseconds = 50;

enum MessageColumn { kindColumn, fileColumn, lineColumn, textColumn };

} // namespace

dlgCompile::dlgCompile(ui::Window& owner, const std::filesystem::path& workshopFile,
                       const compile::CompileOptions& options)
    : Window(Kind::dialog, windowName, &owner), compilation_(workshopFile, options),
      lvMessages(*this, {{"Kind", 1100}, {"File", 2500}, {"Line", 700}, {"Message", 6000}}, *this) {
    setCaption("Compile Help");
    setHelpContext(ui::compileHelp);
    lblProgress.setWrapped();
    lvMessages.setAccessibleName("Messages");
    lvMessages.setSearchColumn(textColumn);
    cmdOpen.setEnabled(false);
    auto buttons = ui::Layout::row();
    buttons.add(cmdOpen).addStretch().add(CancelButton).add(CloseButton);
    auto content = ui::Layout::column();
    content.add(lblProgress).add(lvMessages, 1).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(11000, 5000);
    CancelButton.setFocus();
    UI_ON(lvMessages, DblClick);
    UI_ON(cmdOpen, Click);
    UI_ON(CancelButton, Click);
    UI_ON(CloseButton, Click);
    UI_ON(tmrProgress, Tick);
    tmrProgress.start(pollMilliseconds);
}

const compile::CompileOutcome* dlgCompile::outcome() const {
    return compilation_.isDone() ? &compilation_.outcome() : nullptr;
}

void dlgCompile::tmrProgress_Tick() {
    if (compilation_.isDone()) {
        showOutcome();
        return;
    }
    showProgress();
    tmrProgress.start(pollMilliseconds);
}

void dlgCompile::CancelButton_Click() {
    compilation_.cancel();
    showProgress();
}

void dlgCompile::showProgress() {
    lblProgress.setCaption(compilation_.isCancelled()
                               ? "Cancelling..."
                               : "Compiling... " + std::to_string(compilation_.percent()) + " %");
}

void dlgCompile::showOutcome() {
    const compile::CompileOutcome& outcome = compilation_.outcome();
    const text::Text name = text::displayText(outcome.output.filename());
    if (outcome.isWritten) {
        lblProgress.setCaption(name + ": " + std::to_string(outcome.files) + " files in "
                               + std::to_string(outcome.size) + " bytes");
    } else {
        lblProgress.setCaption(outcome.isStopped ? "Cancelled. Nothing was written."
                                                 : "Nothing was written.");
    }
    lvMessages.rowsReplacing();
    shown_ = static_cast<int>(outcome.messages.size());
    lvMessages.rowsReplaced();
    CancelButton.setEnabled(false);
    cmdOpen.setEnabled(outcome.isWritten);
    (outcome.isWritten ? cmdOpen : CloseButton).setDefault();
    (outcome.isWritten ? cmdOpen : CloseButton).setFocus();
}

void dlgCompile::lvMessages_DblClick(int row) {
    if (row >= 1 && row <= shown_) {
        MessageChosen.raise(compilation_.outcome().messages[static_cast<std::size_t>(row) - 1]);
    }
}

text::Text dlgCompile::cell(int row, int column) const {
    const workshop::Message& message =
        compilation_.outcome().messages[static_cast<std::size_t>(row) - 1];
    switch (column) {
    case kindColumn:
        return nameOf(message.severity);
    case fileColumn:
        return message.file.substr(message.file.find_last_of("/\\") + 1);
    case lineColumn:
        return message.line > 0 ? std::to_string(message.line) : text::Text();
    default:
        return message.text;
    }
}

text::Text dlgCompile::toolTip(int row, int column) const {
    return column == fileColumn
               ? compilation_.outcome().messages[static_cast<std::size_t>(row) - 1].file
               : cell(row, column);
}

} // namespace app
