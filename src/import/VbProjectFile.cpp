#include "import/VbProjectFile.h"

#include <algorithm>

#include "model/TextLines.h"

namespace importer {

using model::TextView;

TextView unquoted(TextView value) {
    value = model::trim(value);
    if (value.starts_with('"')) {
        value.remove_prefix(1);
        value.remove_suffix(std::min<std::size_t>(value.size(), 1));
    }
    return value;
}

VbProjectFile readVbProjectFile(TextView file) {
    constexpr TextView titleKey = "title=";
    constexpr TextView formKey = "form=";
    VbProjectFile project;
    model::LineReader lines(file);
    for (TextView line; lines.next(line);) {
        if (model::startsWithIgnoringCase(line, titleKey)) {
            project.title = unquoted(line.substr(titleKey.size()));
        } else if (model::startsWithIgnoringCase(line, formKey)) {
            project.forms.emplace_back(model::trim(line.substr(formKey.size())));
        }
    }
    return project;
}

} // namespace importer
