#pragma once

#include "app/HelpCompilation.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Timer.h"
#include "ui/Window.h"

namespace app {

/// Shows how far a compilation is, and then what it has to say; stays open beside the main window.
class dlgCompile : public ui::Window, private ui::ListSource {
    HelpCompilation compilation_; // before the controls
    int shown_ = 0;               // messages

public:
    static constexpr const char* windowName = "dlgCompile";

    /// Begins the compilation.
    dlgCompile(ui::Window& owner, const std::filesystem::path& workshopFile,
               const compile::CompileOptions& options);

    ui::Label lblProgress{*this, "Compiling..."};
    ui::ListView lvMessages;
    ui::Button cmdOpen{*this, "&Open Help"};
    ui::Button CancelButton{*this, "Cancel"};
    ui::Button CloseButton{*this, "Close"};
    ui::Timer tmrProgress;

    /// Null before it is done.
    const compile::CompileOutcome* outcome() const;

    ui::Event<const workshop::Message&> MessageChosen; ///< the author wants to see its place
    ui::Event<const std::filesystem::path&> OpenWanted;

    void lvMessages_DblClick(int row);
    void cmdOpen_Click() { OpenWanted.raise(compilation_.outcome().output); }
    void CancelButton_Click();
    void CloseButton_Click() { close(); }
    void tmrProgress_Tick();

private:
    int rowCount() const override { return shown_; }
    text::Text cell(int row, int column) const override;
    text::Text toolTip(int row, int column) const override;
    void showProgress();
    void showOutcome();
};

} // namespace app
