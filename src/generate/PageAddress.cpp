#include "generate/PageAddress.h"

#include "model/PagePath.h"
#include "text/Address.h"
#include "text/CodePage.h"
#include "text/HtmlReader.h"
#include "text/Unicode.h"

namespace generate {

using text::Text;
using text::TextView;

namespace {

constexpr AddressPlace places[] = {
    {"a", "href", FindingKind::link},
    {"area", "href", FindingKind::link},
    {"link", "href", FindingKind::link},
    {"frame", "src", FindingKind::link},
    {"iframe", "src", FindingKind::link},
    {"script", "src", FindingKind::link},
    {"embed", "src", FindingKind::link},
    {"bgsound", "src", FindingKind::link},
    {"object", "data", FindingKind::link},
    {"audio", "src", FindingKind::link},
    {"video", "src", FindingKind::link},
    {"source", "src", FindingKind::link},
    {"track", "src", FindingKind::link},
    {"img", "src", FindingKind::picture},
    {"img", "lowsrc", FindingKind::picture},
    {"img", "dynsrc", FindingKind::picture},
    {"input", "src", FindingKind::picture},
    {"video", "poster", FindingKind::picture},
    {"body", "background", FindingKind::picture},
    {"table", "background", FindingKind::picture},
    {"tr", "background", FindingKind::picture},
    {"td", "background", FindingKind::picture},
    {"th", "background", FindingKind::picture},
};

} // namespace

std::span<const AddressPlace> addressPlaces() {
    return places;
}

TextView protocolOf(TextView address) {
    const std::size_t end = address.find(':');
    const bool isProtocol = end != TextView::npos && address.find_first_of("/\\#?") > end;
    return isProtocol ? address.substr(0, end) : TextView();
}

Text plainAddress(TextView value) {
    const Text resolved = text::resolvedReferences(value);
    return Text(text::trim(text::oneLine(resolved)));
}

Text unescapedAddress(TextView address) {
    const Text bytes = text::unescaped(address);
    return text::isUtf8(bytes) ? bytes : text::CodePage().decoded(bytes);
}

Text pathFromPage(TextView pageName, TextView path) {
    const std::size_t slash = pageName.find_last_of("/\\");
    return Text(pageName.substr(0, slash == TextView::npos ? 0 : slash + 1)) + Text(path);
}

Text plainPlace(TextView path) {
    return text::plainPath(Text(model::pageFolderName) + '/' + Text(path));
}

Text placeBeside(const Text& place, TextView address) {
    const TextView path = address.substr(0, address.find_first_of("#?"));
    const bool isElsewhere = path.empty() || path.find(':') != TextView::npos
                             || path.starts_with('/') || path.starts_with('\\');
    return isElsewhere ? Text() : text::plainPath(place + "/../" + unescapedAddress(path));
}

Text placeKey(TextView path) {
    return model::pageKey(plainPlace(path));
}

} // namespace generate
