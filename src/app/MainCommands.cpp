#include "app/MainCommands.h"

#include "app/frmMain.h"

namespace app {

namespace {

using enum ui::CommandKind;

template <auto... handlerAndArguments>
constexpr auto run = ui::runHandler<frmMain, handlerAndArguments...>;

template <auto condition>
constexpr auto when = ui::askCondition<frmMain, condition>;

constexpr MainCommand commands[] = {
    {menu, "mnuFile", "&File"},
    {command, "mnuFileNew", "&New", "New", "New Project", "New", "Ctrl+N",
     run<&frmMain::mnuFileNew_Click>},
    {command, "mnuFileOpen", "&Open", "Open", "Open File", "Open", "Ctrl+O",
     run<&frmMain::mnuFileOpen_Click>},
    {command, "mnuFileSave", "&Save", "Save", "Save the Current Data", "Save", "Ctrl+S",
     run<&frmMain::mnuFileSave_Click, 0>},
    {command, "mnuFileSave", "Save &As", nullptr, nullptr, nullptr, "Ctrl+Shift+S",
     run<&frmMain::mnuFileSave_Click, 1>},
    {separator, "mnuFileBar0"},
    {menu, "mnuFileImport", "&Import"},
    {command, "mnuFileImportText", "From &Text File", nullptr, nullptr, "Import", nullptr,
     run<&frmMain::mnuFileImportText_Click>},
    {command, "mnuFileImportHelp", "From &Topicsmith File", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuFileImportHelp_Click>},
    {command, "mnuFileImportProject", "From &VB Project", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuFileImportProject_Click>},
    {command, "mnuFileImportHelpFile", "From &Compiled Help or Workshop Project...", nullptr,
     nullptr, nullptr, nullptr, run<&frmMain::mnuFileImportHelpFile_Click>},
    {command, "mnuFileImportPages", "From &Markdown or HTML Pages...", nullptr, nullptr, nullptr,
     nullptr, run<&frmMain::mnuFileImportPages_Click>},
    {end},
    {separator, "mnuFileBar1"},
    {menu, "mnuFileGenerate", "&Generate Files"},
    {command, "mnuFileGenerateHelp", "Generate &Help Files", "MakeHelp", "Generate Help Files",
     "MakeHelp", "Ctrl+G", run<&frmMain::mnuFileGenerateHelp_Click>},
    {command, "mnuFileGenerateAgain", "Generate &Again", nullptr, nullptr, nullptr, "F8",
     run<&frmMain::mnuFileGenerateAgain_Click>, when<&frmMain::canGenerateAgain>},
    {command, "mnuFileGenerateDoc", "Generate &Documentation", nullptr, nullptr, "MakeDocument",
     "Ctrl+Shift+G", run<&frmMain::mnuFileGenerateDoc_Click>},
    {command, "mnuFileGenerateEpub", "Generate &EPUB...", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuFileGenerateEpub_Click>},
    {command, "mnuFileGeneratePdf", "Generate &PDF...", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuFileGeneratePdf_Click>},
    {command, "mnuFileCompileHelp", "&Compile Help...", "CompileHelp", "Compile Help",
     "CompileHelp", "F9", run<&frmMain::mnuFileCompileHelp_Click>},
    {command, "mnuFileCompileTo", "Compile &To...", nullptr, nullptr, nullptr, "Shift+F9",
     run<&frmMain::mnuFileCompileTo_Click>},
    {command, "mnuFileGenerateWeb", "Generate &Web Site...", nullptr, nullptr, "WebLink", nullptr,
     run<&frmMain::mnuFileGenerateWeb_Click>},
    {command, "mnuFileGenerateWebTo", "Generate Web &Site To...", nullptr, nullptr, nullptr,
     nullptr, run<&frmMain::mnuFileGenerateWebTo_Click>},
    {end},
    {command, "mnuFileSynch", "S&ynchronize Files", "Synch", "Synchronize Files", "Synch", nullptr,
     run<&frmMain::mnuFileSynch_Click>},
    {command, "mnuFileSpellChkAll", "Spell Check All", nullptr, nullptr, "Spelling", "F7",
     run<&frmMain::mnuFileSpellChkAll_Click>},
    {separator, "mnuFileBar2"},
    {command, "mnuFileProperties", "Properties", nullptr, nullptr, "Properties", "Alt+Return",
     run<&frmMain::mnuFileProperties_Click>},
    {separator, "mnuFileBar3"},
    {command, "mnuFileMRU", "", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuFileMRU_Click, 0>},
    {command, "mnuFileMRU", "", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuFileMRU_Click, 1>},
    {command, "mnuFileMRU", "", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuFileMRU_Click, 2>},
    {command, "mnuFileMRU", "", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuFileMRU_Click, 3>},
    {separator, "mnuFileBar4"},
    {command, "mnuFileExit", "E&xit", nullptr, nullptr, nullptr, "Alt+F4",
     run<&frmMain::mnuFileExit_Click>},
    {end},

    {menu, "mnuEdit", "&Edit"},
    {command, "mnuEditUndo", "U&ndo", nullptr, nullptr, "Undo", "Ctrl+Z",
     run<&frmMain::mnuEditUndo_Click>, when<&frmMain::canUndo>},
    {command, "mnuEditRedo", "&Redo", nullptr, nullptr, "Redo", "Ctrl+Y; Ctrl+Shift+Z",
     run<&frmMain::mnuEditRedo_Click>, when<&frmMain::canRedo>},
    {separator, "mnuEditBarUndo"},
    {command, "mnuEditCut", "C&ut", "Cut", "Cut", "Cut", "Ctrl+X", run<&frmMain::mnuEditCut_Click>,
     when<&frmMain::canCut>},
    {command, "mnuEditCopy", "&Copy", "Copy", "Copy", "Copy", "Ctrl+C",
     run<&frmMain::mnuEditCopy_Click>, when<&frmMain::canCopy>},
    {command, "mnuEditPaste", "&Paste", "Paste", "Paste", "Paste", "Ctrl+V",
     run<&frmMain::mnuEditPaste_Click>, when<&frmMain::canPaste>},
    {command, "mnuEditFind", "Find...", "Search", "Search All", "Search", "Ctrl+F",
     run<&frmMain::mnuEditFind_Click>},
    {command, "mnuEditFindNext", "Find Next", nullptr, nullptr, nullptr, "F3",
     run<&frmMain::mnuEditFindNext_Click>},
    {command, "mnuEditReplace", "Find and Replace...", nullptr, nullptr, nullptr,
     "Ctrl+H; Ctrl+Shift+H", run<&frmMain::mnuEditReplace_Click>},
    {separator, "mnuEditBar0"},
    {listCommand, "mnuEditAdd", "&Add New Topic", "Insert", "Insert New Topic", "Insert", "Ins",
     run<&frmMain::mnuEditAdd_Click>},
    {listCommand, "mnuEditDelete", "&Delete Topic", "Delete", "Delete Current Topic", "Delete",
     "Del", run<&frmMain::mnuEditDelete_Click>, when<&frmMain::hasTopic>},
    {separator, "mnuEditBar1"},
    {command, "mnuEditPromote", "Promote Topic", "Promote", "Promote", "Promote", "Alt+Right",
     run<&frmMain::mnuEditPromote_Click>, when<&frmMain::canPromote>},
    {command, "mnuEditDemote", "Demote Topic", "Demote", "Demote", "Demote", "Alt+Left",
     run<&frmMain::mnuEditDemote_Click>, when<&frmMain::canDemote>},
    {command, "mnuEditUp", "Move Topic Up", "MoveUp", "Move Up", "MoveUp", "Alt+Up",
     run<&frmMain::mnuEditUp_Click>, when<&frmMain::canMoveUp>},
    {command, "mnuEditDown", "Move Topic Down", "MoveDown", "Move Down", "MoveDown", "Alt+Down",
     run<&frmMain::mnuEditDown_Click>, when<&frmMain::canMoveDown>},
    {separator, "mnuEditBarBranch"},
    {menu, "mnuBranch", "With &Subtopics"},
    {command, "mnuBranchPromote", "Promote", nullptr, nullptr, "Promote", "Alt+Shift+Right",
     run<&frmMain::mnuBranchPromote_Click>, when<&frmMain::canPromoteBranch>},
    {command, "mnuBranchDemote", "Demote", nullptr, nullptr, "Demote", "Alt+Shift+Left",
     run<&frmMain::mnuBranchDemote_Click>, when<&frmMain::canDemoteBranch>},
    {command, "mnuBranchUp", "Move Up", nullptr, nullptr, "MoveUp", "Alt+Shift+Up",
     run<&frmMain::mnuBranchUp_Click>, when<&frmMain::canMoveBranchUp>},
    {command, "mnuBranchDown", "Move Down", nullptr, nullptr, "MoveDown", "Alt+Shift+Down",
     run<&frmMain::mnuBranchDown_Click>, when<&frmMain::canMoveBranchDown>},
    {separator, "mnuBranchBar0"},
    {command, "mnuBranchCut", "Cut Topics", nullptr, nullptr, nullptr, "Ctrl+Shift+X",
     run<&frmMain::mnuBranchCut_Click>, when<&frmMain::hasTopic>},
    {command, "mnuBranchCopy", "Copy Topics", nullptr, nullptr, nullptr, "Ctrl+Shift+C",
     run<&frmMain::mnuBranchCopy_Click>, when<&frmMain::hasTopic>},
    {command, "mnuBranchPaste", "Paste Topics", nullptr, nullptr, nullptr, "Ctrl+Shift+V",
     run<&frmMain::mnuBranchPaste_Click>, when<&frmMain::canPasteTopics>},
    {listCommand, "mnuBranchDelete", "Delete", nullptr, nullptr, "Delete", "Shift+Del",
     run<&frmMain::mnuBranchDelete_Click>, when<&frmMain::hasTopic>},
    {end},
    {end},

    {menu, "mnuView", "&View"},
    {command, "mnuViewTopicPane", "Topic &Pane", nullptr, nullptr, nullptr, "F4",
     run<&frmMain::mnuViewTopicPane_Click>},
    {command, "mnuViewEditBeside", "&Edit Beside the Outline", nullptr, nullptr, nullptr, "Ctrl+E",
     run<&frmMain::mnuViewEditBeside_Click>},
    {command, "mnuViewNextPart", "Go to &Next Part", nullptr, nullptr, nullptr, "F6",
     run<&frmMain::mnuViewPart_Click, 1>},
    {command, "mnuViewPreviousPart", "Go to Pre&vious Part", nullptr, nullptr, nullptr, "Shift+F6",
     run<&frmMain::mnuViewPart_Click, -1>},
    {separator, "mnuViewBar0"},
    {command, "mnuViewFilter", "&Filter Topics", nullptr, nullptr, nullptr, "Ctrl+L",
     run<&frmMain::mnuViewFilter_Click>},
    {command, "mnuViewFold", "Fold &All", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuViewFoldAll_Click, true>, when<&frmMain::hasTopic>},
    {command, "mnuViewUnfold", "&Unfold All", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuViewFoldAll_Click, false>, when<&frmMain::hasTopic>},
    {separator, "mnuViewBar1"},
    {command, "mnuViewReport", "Last &Report", nullptr, nullptr, nullptr, "Ctrl+Shift+R",
     run<&frmMain::mnuViewReport_Click>, when<&frmMain::canReopenReport>},
    {separator, "mnuViewBar2"},
    {command, "mnuViewStoreUnasked", "&Store Edited Texts Without Asking", nullptr, nullptr,
     nullptr, nullptr, run<&frmMain::mnuViewStoreUnasked_Click>},
    {end},

    {menu, "mnuHelp", "&Help"},
    {command, "mnuHelpContents", "&Contents...", nullptr, nullptr, "Help", "F1",
     run<&frmMain::mnuHelpContents_Click>},
    {command, "mnuHelpIndex", "Help &Index...", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuHelpIndex_Click>},
    {separator, "mnuHelpBar0"},
    {command, "mnuHelpAbout", "&About...", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuHelpAbout_Click>},
    {end},

    // Not in the menu bar.
    {listCommand, "mnuListEdit", "&Edit Topic Text...", nullptr, nullptr, nullptr, nullptr,
     run<&frmMain::mnuListEdit_Click>, when<&frmMain::hasTopic>},
};

constexpr const char* keys[] = {
    "New",    "Open",     "Save",   "Synch",  nullptr,    "Cut",         "Copy",
    "Paste",  nullptr,    "Insert", "Delete", nullptr,    "Demote",      "Promote",
    "MoveUp", "MoveDown", nullptr,  "Search", "MakeHelp", "CompileHelp",
};

constexpr const char* listMenu[] = {
    "mnuListEdit",   nullptr, "mnuEditUndo",    "mnuEditRedo",   nullptr,     "mnuEditAdd",
    "mnuEditDelete", nullptr, "mnuEditPromote", "mnuEditDemote", "mnuEditUp", "mnuEditDown",
};

} // namespace

std::span<const MainCommand> mainCommands() {
    return commands;
}

std::span<const char* const> toolbarKeys() {
    return keys;
}

std::span<const char* const> listMenuCommands() {
    return listMenu;
}

} // namespace app
