#pragma once

namespace ui {

/// The context numbers of the program's own help by which its windows call up their pages.
enum HelpContext {
    mainWindowHelp = 150,
    helpWindowHelp = 155,
    editorHelp = 160,
    linkDialogHelp = 162,
    previewHelp = 163,
    pageOptionsHelp = 231,
    navigationOptionsHelp = 232,
    documentationOptionsHelp = 233,
    languageOptionsHelp = 234,
    vbImportHelp = 251,
    topicImportHelp = 253,
    findHelp = 261,
    spellingHelp = 262,
    replaceHelp = 270,
    topicLinkHelp = 272,
    variableOptionsHelp = 273,
    pasteHelp = 280,
    tableHelp = 281,
    findBarHelp = 282,
    writingAidsHelp = 283,
    snippetHelp = 284,
    reportHelp = 330,
    compileHelp = 340,
    helpImportHelp = 350,
    webSiteHelp = 360,
    epubHelp = 365,
    pdfHelp = 366,
    pageImportHelp = 377
};

/// All of them, for whoever checks that the manual has their pages.
inline constexpr HelpContext helpContexts[] = {mainWindowHelp,
                                               helpWindowHelp,
                                               editorHelp,
                                               linkDialogHelp,
                                               previewHelp,
                                               pageOptionsHelp,
                                               navigationOptionsHelp,
                                               documentationOptionsHelp,
                                               languageOptionsHelp,
                                               vbImportHelp,
                                               topicImportHelp,
                                               findHelp,
                                               spellingHelp,
                                               replaceHelp,
                                               topicLinkHelp,
                                               variableOptionsHelp,
                                               pasteHelp,
                                               tableHelp,
                                               findBarHelp,
                                               writingAidsHelp,
                                               snippetHelp,
                                               reportHelp,
                                               compileHelp,
                                               helpImportHelp,
                                               webSiteHelp,
                                               epubHelp,
                                               pdfHelp,
                                               pageImportHelp};

} // namespace ui
