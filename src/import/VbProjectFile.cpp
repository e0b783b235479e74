#include "import/VbProjectFile.h"

#include <algorithm>

#include "text/TextLines.h"

namespace importer {

using text::TextView;

TextView unquoted(TextView value) {
    value = text::trim(value);
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
    text::LineReader lines(file);
    for (TextView line; lines.next(line);) {
        if (text::startsWithIgnoringCase(line, titleKey)) {
            project.title = unquoted(line.substr(titleKey.size()));
        } else if (text::startsWithIgnoringCase(line, formKey)) {
            project.forms.emplace_back(text::trim(line.substr(formKey.size())));
        }
    }
    return project;
}

} // namespace importer
