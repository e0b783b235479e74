#pragma once

#include "text/Text.h"

namespace importer {

/// What matters of a Visual Basic 6 form (`.frm`).
struct VbForm {
    text::Text name; ///< the form's object name, by which code calls it
    text::Text caption;
    text::Text helpContextId; ///< a number as it is written
    text::Text menuHtml;      ///< the menus as nested lists under a heading line; empty without

    /// The forms that the code shows, each with ";" in front (";frmAbout;frmOptions"). A name that
    /// another one begins with is missing when it comes later.
    text::Text calledForms;
};

VbForm readVbForm(text::TextView file);

} // namespace importer
