#include "editor/forms/EditorCommands.h"

#include "editor/forms/frmEditBody.h"

namespace editor {

namespace {

using enum ui::CommandKind;
using Form = frmEditBody;

template <auto... handlerAndArguments>
constexpr auto run = ui::runHandler<Form, handlerAndArguments...>;

template <auto condition>
constexpr auto when = ui::askCondition<Form, condition>;

/// A command without toolbar button.
constexpr ui::CommandRow<Form> plain(const char* name, const char* caption, void (*run)(Form&),
                                     const char* image = nullptr, const char* shortcut = nullptr) {
    return {command, name, caption, nullptr, nullptr, image, shortcut, run};
}

constexpr ui::CommandRow<Form> commands[] = {
    {menu, "mnuFile", "&File"},
    {command, "mnuFileImport", "&Import", "Import", "Import from File", "Import", nullptr,
     run<&Form::mnuFileImport_Click>},
    {command, "mnuFilePreview", "&Preview", "Preview", "Preview Help Topic", "Preview", "F5",
     run<&Form::mnuFilePreview_Click>},
    {command, "mnuFileSave", "&Save", "Save", "Save", "Save", "Ctrl+S",
     run<&Form::mnuFileSave_Click>},
    {command, "mnuFileClose", "C&lose", "Close", "Close", "Close", "Ctrl+W",
     run<&Form::mnuFileClose_Click>},
    {end},

    {menu, "mnuEdit", "&Edit"},
    {command, "mnuEditUndo", "U&ndo", nullptr, nullptr, "Undo", "Ctrl+Z",
     run<&Form::mnuEditUndo_Click>, when<&Form::canUndo>},
    {command, "mnuEditRedo", "&Redo", nullptr, nullptr, "Redo", "Ctrl+Y; Ctrl+Shift+Z",
     run<&Form::mnuEditRedo_Click>, when<&Form::canRedo>},
    {separator, "mnuEditBar0"},
    {command, "mnuEditCut", "C&ut", "Cut", "Cut", "Cut", "Ctrl+X", run<&Form::mnuEditCut_Click>,
     when<&Form::canCopy>},
    {command, "mnuEditCopy", "&Copy", "Copy", "Copy", "Copy", "Ctrl+C",
     run<&Form::mnuEditCopy_Click>, when<&Form::canCopy>},
    {command, "mnuEditPaste", "&Paste", "Paste", "Paste", "Paste", "Ctrl+V",
     run<&Form::mnuEditPaste_Click>, when<&Form::canPaste>},
    {command, "mnuEditPasteText", "Paste as &Text", nullptr, nullptr, nullptr, "Ctrl+Shift+V",
     run<&Form::mnuEditPasteText_Click>, when<&Form::canPaste>},
    {command, "mnuEditAll", "Select &All", nullptr, nullptr, "SelectAll", "Ctrl+A",
     run<&Form::mnuEditAll_Click>},
    {separator, "mnuEditBar1"},
    plain("mnuEditFindText", "&Find in Text...", run<&Form::mnuEditFindText_Click, false>, "Search",
          "Ctrl+F"),
    plain("mnuEditReplaceText", "Replace in Te&xt...", run<&Form::mnuEditFindText_Click, true>,
          nullptr, "Ctrl+H"),
    plain("mnuEditFind", "Find in Pro&ject...", run<&Form::mnuEditFind_Click>, nullptr,
          "Ctrl+Shift+F"),
    plain("mnuEditReplace", "Find and Rep&lace in Project...", run<&Form::mnuEditReplace_Click>,
          nullptr, "Ctrl+Shift+H"),
    plain("mnuEditFindNext", "Find N&ext", run<&Form::mnuEditFindNext_Click>, nullptr, "F3"),
    {separator, "mnuEditBar2"},
    plain("mnuEditComplete", "Co&mplete", run<&Form::mnuEditComplete_Click>, nullptr, "Ctrl+Space"),
    plain("mnuEditAids", "&Writing Aids...", run<&Form::mnuEditAids_Click>),
    {separator, "mnuEditBar3"},
    plain("mnuEditPrevious", "Pre&vious Topic", run<&Form::mnuEditTopic_Click, -1>, nullptr,
          "Ctrl+PgUp"),
    plain("mnuEditNext", "Next T&opic", run<&Form::mnuEditTopic_Click, 1>, nullptr, "Ctrl+PgDown"),
    {end},

    {menu, "mnuTag", "&HTML Tag"},
    {command, "mnuTagBold", "Make &Bold", "Bold", "Bold", "Bold", "Ctrl+B",
     run<&Form::mnuTagBold_Click>},
    {command, "mnuTagItalic", "Make &Italic", "Italic", "Italic", "Italic", "Ctrl+I",
     run<&Form::mnuTagItalic_Click>},
    {command, "mnuTagUnderline", "Make Unde&rline", "Underline", "Underline", "Underline", "Ctrl+U",
     run<&Form::mnuTagUnderline_Click>},
    {command, "mnuTagPara", "Make &Paragraph", "Para", "Insert Paragraph", "Para", "Ctrl+0",
     run<&Form::mnuTagPara_Click>},
    plain("mnuTagHeading", "Heading 1", run<&Form::mnuTagHeading_Click, 1>, "Heading1", "Ctrl+1"),
    plain("mnuTagHeading", "Heading 2", run<&Form::mnuTagHeading_Click, 2>, "Heading2", "Ctrl+2"),
    plain("mnuTagHeading", "Heading 3", run<&Form::mnuTagHeading_Click, 3>, "Heading3", "Ctrl+3"),
    plain("mnuTagHeading", "Heading 4", run<&Form::mnuTagHeading_Click, 4>, "Heading4", "Ctrl+4"),
    plain("mnuTagHeading", "Heading 5", run<&Form::mnuTagHeading_Click, 5>, "Heading5", "Ctrl+5"),
    {command, "mnuTagBullet", "Make Bullet List", "BulletList", "Insert Bullet List", "BulletList",
     "Ctrl+Shift+8", run<&Form::mnuTagBullet_Click>},
    {command, "mnuTagNumber", "Make Numbered List", "NumList", "Insert Numbered List", "NumList",
     "Ctrl+Shift+7", run<&Form::mnuTagNumber_Click>},
    {command, "mnuTagIntoList", "Insert Into List", "InsertIntoList", "Insert Into Current List",
     "InsertIntoList", "Ctrl+Shift+I", run<&Form::mnuTagIntoList_Click>},
    {command, "mnuTagInsert", "Insert &Graphic", "Graphic", "Insert Graphic", "Graphic",
     "Ctrl+Shift+G", run<&Form::mnuTagInsert_Click>},
    {command, "mnuTagPagelink", "Insert Page &Link", "PageLink", "Insert Page Link", "PageLink",
     "Ctrl+Shift+K", run<&Form::mnuTagPagelink_Click>},
    {command, "mnuTagTopiclink", "Insert Topic Lin&k...", nullptr, nullptr, nullptr, "Ctrl+K",
     run<&Form::mnuTagTopiclink_Click>},
    {command, "mnuTagWeblink", "Insert &Web Page", "WebLink", "Insert Web Link", "WebLink",
     "Ctrl+Shift+L", run<&Form::mnuTagWeblink_Click>},
    plain("mnuTagSnippet", "S&nippets...", run<&Form::mnuTagSnippet_Click>, nullptr, "Ctrl+J"),
    {menu, "mnuTagChars", "Insert &Special Chars"},
    plain("mnuTagCharsNBS", "Non Breaking Space", run<&Form::mnuTagChars_Click, Form::nbsp>),
    plain("mnuTagCharsSQuote", "Single Quote '", run<&Form::mnuTagChars_Click, Form::apostrophe>),
    plain("mnuTagCharsDQuote", "Double Quote \"", run<&Form::mnuTagChars_Click, Form::quote>),
    plain("mnuTagCharsLess", "Less Than <", run<&Form::mnuTagChars_Click, Form::less>),
    plain("mnuTagCharsGreater", "Greater Than >", run<&Form::mnuTagChars_Click, Form::greater>),
    plain("mnuTagCharsCopyright", "Copyright \u00A9",
          run<&Form::mnuTagChars_Click, Form::copyright>),
    plain("mnuTagCharsTrademark", "Trademark \u2122",
          run<&Form::mnuTagChars_Click, Form::trademark>),
    plain("mnuTagCharsRegTrademark", "Registered TM \u00AE",
          run<&Form::mnuTagChars_Click, Form::registered>),
    {end},
    {end},

    {menu, "mnuTable", "Insert Table"},
    plain("mnuTableCol", "2 Column Table", run<&Form::mnuTableCol_Click, 2>, "Col2"),
    plain("mnuTableCol", "3 Column Table", run<&Form::mnuTableCol_Click, 3>, "Col3"),
    plain("mnuTableCol", "4 Column Table", run<&Form::mnuTableCol_Click, 4>, "Col4"),
    plain("mnuTableCol", "5 Column Table", run<&Form::mnuTableCol_Click, 5>, "Col5"),
    {separator, "mnuTableBar0"},
    plain("mnuTableDraw", "Draw &Table...", run<&Form::mnuTableDraw_Click>, nullptr,
          "Ctrl+Shift+T"),
    {separator, "mnuTableBar1"},
    plain("mnuTableAddRow", "Insert &Row Below", run<&Form::mnuTableChange_Click, Form::rowAdded>,
          nullptr, "Alt+Shift+Down"),
    plain("mnuTableAddColumn", "Insert &Column Right",
          run<&Form::mnuTableChange_Click, Form::columnAdded>, nullptr, "Alt+Shift+Right"),
    plain("mnuTableDeleteRow", "&Delete Row", run<&Form::mnuTableChange_Click, Form::rowRemoved>,
          nullptr, "Alt+Shift+Up"),
    plain("mnuTableDeleteColumn", "Delete Col&umn",
          run<&Form::mnuTableChange_Click, Form::columnRemoved>, nullptr, "Alt+Shift+Left"),
    {end},

    {barCommand, "mnuSpellCheck", "Spell Check", nullptr, nullptr, nullptr, "F7",
     run<&Form::mnuSpellCheck_Click>},

    // Not in the menu bar.
    {command, "mnuPreviewClose", "Close Preview", nullptr, nullptr, nullptr, "Esc",
     run<&Form::mnuPreviewClose_Click>, when<&Form::canLeave>},
};

constexpr const char* keys[] = {
    "Import",         "Save",  "Close",   nullptr,     "Cut",     "Copy",       "Paste",
    nullptr,          "Bold",  "Italic",  "Underline", "Para",    "BulletList", "NumList",
    "InsertIntoList", nullptr, "Graphic", "PageLink",  "WebLink",
};

constexpr const char* lastKeys[] = {"Preview"};

} // namespace

std::span<const ui::CommandRow<frmEditBody>> editorCommands() {
    return commands;
}

std::span<const char* const> editorToolbarKeys() {
    return keys;
}

std::span<const char* const> editorLastToolbarKeys() {
    return lastKeys;
}

} // namespace editor
