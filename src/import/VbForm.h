#pragma once

#include "model/Text.h"

namespace importer {

/// What matters of a Visual Basic 6 form (`.frm`).
struct VbForm {
    model::Text name; ///< the form's object name, by which code calls it
    model::Text caption;
    model::Text helpContextId; ///< a number as it is written
    model::Text menuHtml;      ///< the menus as nested lists under a heading line; empty without

    /// The forms that the code shows, each with ";" in front (";frmAbout;frmOptions"). A name that
    /// another one begins with is missing when it comes later.
    model::Text calledForms;
};

VbForm readVbForm(model::TextView file);

} // namespace importer
