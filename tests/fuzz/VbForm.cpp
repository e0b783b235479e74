#include "import/VbForm.h"

#include <cstdint>

#include "Require.h"
#include "import/VbProjectFile.h"
#include "model/Helper.h"
#include "text/TextLines.h"

using namespace text;
using text::TextView;

namespace {

/// The same list, made the slow way: by looking through all of it for each name.
Text calledForms(TextView code) {
    Text list;
    text::LineReader lines(code);
    for (TextView line; lines.next(line);) {
        const std::size_t call = line.find(".Show");
        if (call == TextView::npos || line.starts_with("Rem ")) {
            continue;
        }
        const std::size_t quote = line.find('\'');
        const std::size_t comment = quote == TextView::npos ? line.find(" Rem ") : quote;
        if (comment < call
            || (line.size() > call + 5 && model::isAllLetters(line.substr(call + 5, 1)))) {
            continue;
        }
        const Text name(line.substr(0, call).substr(line.substr(0, call).rfind(' ') + 1));
        if (name != "Me" && list.find(';' + name) == Text::npos) {
            list += ';' + name;
        }
    }
    return list;
}

} // namespace

/// Any form is read without a crash; its menus are merged, and its calls are those of the slow way.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Text input(reinterpret_cast<const char*>(data), size);
    const importer::VbForm form = importer::readVbForm(input);
    require(form.menuHtml.find("</ul>\r\n<ul>\r\n") == Text::npos, "two lists in a row");
    importer::readVbProjectFile(input);
    require(importer::readVbForm("Begin\nEnd\n" + input).calledForms == calledForms(input),
            "other calls");
    return 0;
}
