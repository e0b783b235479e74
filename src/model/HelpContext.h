#pragma once

namespace model {

/// The context numbers of the program's own help by which its windows call up their pages.
enum HelpContext {
    mainWindowHelp = 150,
    editorHelp = 160,
    linkDialogHelp = 162,
    previewHelp = 163,
    optionsHelp = 230,
    topicImportHelp = 253,
    findHelp = 261,
    spellingHelp = 262,
    reportHelp = 330
};

/// All of them, for whoever checks that the manual has their pages.
inline constexpr HelpContext helpContexts[] = {mainWindowHelp, editorHelp,   linkDialogHelp,
                                               previewHelp,    optionsHelp,  topicImportHelp,
                                               findHelp,       spellingHelp, reportHelp};

} // namespace model
