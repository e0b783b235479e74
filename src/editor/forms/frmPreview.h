#pragma once

#include "editor/forms/PreviewFile.h"
#include "ui/Browser.h"
#include "ui/Settings.h"
#include "ui/Window.h"

namespace editor {

/// Shows a topic as it will look, beside the editor. Links do not work here.
class frmPreview : public ui::Window {
    ui::Settings& settings_; // before the controls

public:
    static constexpr const char* windowName = "frmPreview";

    /// Nothing is owned.
    frmPreview(ui::Window& owner, ui::Settings& settings);

    /// Writes a page into a file, which only the person can read and which goes away with the
    /// window, and shows it, or shows it anew, with what lies in the project's folder. The
    /// focus stays in the editor.
    std::error_code preview(text::TextView title, text::TextView page,
                            const std::filesystem::path& file,
                            const std::filesystem::path& projectFolder);

    /// Shows what has become of the page since, at the same place, with the element of withCaret()
    /// in view. The window stays where it is among the others.
    void refresh(text::TextView title, text::TextView page,
                 const std::filesystem::path& projectFolder);

    ui::Browser brwPreview{*this};

    ui::Command closeCommand{*this, {"close", "", "", "", "", "Esc; Ctrl+W"}};

    void brwPreview_Refused();
    void closeCommand_Click() { close(); }

    void Resize() override;
    bool mayClose() override;

private:
    void placeBeside(const ui::Window& editor);

    PreviewFile file_;
    text::Text page_; ///< that is shown
};

} // namespace editor
