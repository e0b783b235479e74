#include "book/StrictSvg.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "book/StrictMarkup.h"
#include "book/StrictStyle.h"
#include "text/HtmlReader.h"

namespace book {

using text::Text;
using text::TextView;

namespace {

/// What draws. What moves, links or holds pages is not here.
constexpr TextView elementNames =
    "circle clipPath defs desc ellipse feBlend feColorMatrix feComponentTransfer feComposite "
    "feConvolveMatrix feDiffuseLighting feDisplacementMap feDistantLight feFlood feFuncA feFuncB "
    "feFuncG feFuncR feGaussianBlur feImage feMerge feMergeNode feMorphology feOffset fePointLight "
    "feSpecularLighting feSpotLight feTile feTurbulence filter g image line linearGradient marker "
    "mask path pattern polygon polyline radialGradient rect stop style svg switch symbol text "
    "textPath title tspan use";

constexpr TextView attributeNames =
    "alignment-baseline amplitude azimuth baseFrequency baseline-shift bias class clip clip-path "
    "clip-rule clipPathUnits color color-interpolation color-interpolation-filters cx cy d "
    "diffuseConstant display divisor dominant-baseline dx dy edgeMode elevation exponent fill "
    "fill-opacity fill-rule filter filterUnits flood-color flood-opacity font-family font-size "
    "font-stretch font-style font-variant font-weight fx fy gradientTransform gradientUnits height "
    "id in in2 intercept k1 k2 k3 k4 kernelMatrix kernelUnitLength lengthAdjust letter-spacing "
    "lighting-color limitingConeAngle marker-end marker-mid marker-start markerHeight markerUnits "
    "markerWidth mask maskContentUnits maskUnits mode numOctaves offset opacity operator order "
    "orient overflow patternContentUnits patternTransform patternUnits points pointsAtX pointsAtY "
    "pointsAtZ preserveAlpha preserveAspectRatio primitiveUnits r radius refX refY result rotate "
    "rx ry scale seed shape-rendering slope spreadMethod startOffset stdDeviation stitchTiles "
    "stop-color stop-opacity stroke stroke-dasharray stroke-dashoffset stroke-linecap "
    "stroke-linejoin stroke-miterlimit stroke-opacity stroke-width style surfaceScale "
    "systemLanguage tableValues targetX targetY text-anchor text-decoration text-rendering "
    "textLength transform type values viewBox visibility width word-spacing writing-mode x x1 x2 "
    "xChannelSelector xlink:href xml:lang xml:space y y1 y2 yChannelSelector z";

/// The names by the same in small letters: the reader's names have no others.
std::map<Text, TextView> namesIn(TextView list) {
    std::map<Text, TextView> names;
    while (!list.empty()) {
        const TextView name = list.substr(0, list.find(' '));
        names.emplace(text::lowerAscii(name), name);
        list.remove_prefix(std::min(name.size() + 1, list.size()));
    }
    return names;
}

std::optional<TextView> known(const std::map<Text, TextView>& names, const Text& lowerName) {
    const auto name = names.find(lowerName);
    return name != names.end() ? std::optional(name->second) : std::nullopt;
}

/// A place within the drawing, or a picture that stands in it.
bool isInside(TextView address) {
    return address.starts_with('#') || text::startsWithIgnoringCase(address, "data:image/png;")
           || text::startsWithIgnoringCase(address, "data:image/jpeg;")
           || text::startsWithIgnoringCase(address, "data:image/gif;");
}

std::optional<Text> addressInside(const Text& address) {
    return isInside(address) ? std::optional(address) : std::nullopt;
}

/// Whether an attribute's value takes something from another file.
bool reachesOut(TextView value) {
    constexpr TextView start = "url(";
    const Text lower = text::lowerAscii(value);
    for (std::size_t at = lower.find(start); at != Text::npos; at = lower.find(start, at)) {
        at = lower.find_first_not_of(" \t\r\n\"'", at + start.size());
        if (at == Text::npos || lower[at] != '#') {
            return true;
        }
    }
    return false;
}

bool isName(TextView id) {
    const auto isOfName = [](char c) {
        return text::isAsciiLetterOrDigit(c) || c == '_' || c == '-' || c == '.';
    };
    const char first = id.empty() ? '-' : id.front();
    return first != '-' && first != '.' && (first < '0' || first > '9')
           && std::all_of(id.begin(), id.end(), isOfName);
}

class StrictSvg {
public:
    explicit StrictSvg(TextView svg) : svg_(svg), reader_(svg) {}

    Text make() {
        while (!isDone_ && reader_.next()) {
            if (reader_.isText()) {
                takeText();
            } else if (reader_.closes()) {
                takeEnd(ownName());
            } else {
                takeStart(ownName());
            }
        }
        while (!open_.empty()) {
            close();
        }
        return std::move(out_);
    }

private:
    /// Drawing programs may write the standard's own elements with a prefix.
    Text ownName() const {
        constexpr TextView prefix = "svg:";
        const Text name = reader_.lowerName();
        return name.starts_with(prefix) ? name.substr(prefix.size()) : name;
    }

    void takeText() {
        constexpr TextView holders[] = {"text", "tspan", "textPath", "title", "desc"};
        const bool isShown =
            leftOut_.empty() && !open_.empty()
            && std::find(std::begin(holders), std::end(holders), open_.back()) != std::end(holders);
        if (isShown) {
            out_ += escapedText(text::resolvedReferences(reader_.text()));
        }
    }

    void takeEnd(const Text& name) {
        if (!leftOut_.empty()) {
            depthLeftOut_ -= name == leftOut_ ? 1 : 0;
            if (depthLeftOut_ == 0) {
                leftOut_.clear();
            }
            return;
        }
        const auto own = known(elements_, name);
        const auto match = own ? std::find(open_.rbegin(), open_.rend(), *own) : open_.rend();
        for (auto count = match == open_.rend() ? 0 : match - open_.rbegin() + 1; count > 0;
             --count) {
            close();
        }
    }

    void takeStart(const Text& name) {
        const bool isClosed = svg_.substr(0, reader_.end() - 1).ends_with('/');
        if (!leftOut_.empty()) {
            depthLeftOut_ += !isClosed && name == leftOut_ ? 1 : 0;
            return;
        }
        constexpr std::size_t deepest = 200; // readers go in and in
        const auto own = known(elements_, name);
        if (name.starts_with('!') || name.starts_with('?') || name == "a" // its contents stay
            || (open_.empty() && name != "svg")) {
            return;
        }
        Text attributes;
        if (!own || open_.size() >= deepest || !takeAttributes(attributes)) {
            leftOut_ = isClosed ? Text() : name;
            depthLeftOut_ = 1;
            return;
        }
        text::append(out_, "<", *own);
        if (open_.empty()) {
            out_ += R"( xmlns="http://www.w3.org/2000/svg")"
                    R"( xmlns:xlink="http://www.w3.org/1999/xlink")";
        }
        text::append(out_, attributes, ">");
        open_.push_back(*own);
        if (name == "style") {
            out_ += escapedText(strictStyleSheet(styleSheet(), addressInside));
        }
        if (isClosed) {
            close();
        }
    }

    Text styleSheet() const {
        constexpr TextView start = "<![CDATA[";
        TextView css = text::trimmed(reader_.contents());
        if (css.starts_with(start) && css.ends_with("]]>")) {
            css = css.substr(start.size(), css.size() - start.size() - 3);
        }
        return Text(css);
    }

    /// False when the element would take something from another file.
    bool takeAttributes(Text& written) {
        std::set<TextView> names;
        for (const auto& attribute : reader_.attributes()) {
            const Text lower = text::lowerAscii(attribute.name);
            const auto name = known(attributes_, lower == "href" ? "xlink:href" : lower);
            Text value = text::resolvedReferences(attribute.value.value_or(TextView()));
            if (!name || !names.insert(*name).second) {
                continue;
            }
            if (*name == "xlink:href" && !isInside(value)) {
                return false;
            }
            if (*name == "style") {
                value = strictDeclarations(value, addressInside);
            }
            const bool isWrong = *name == "id" ? !isName(value) || !ids_.insert(value).second
                                               : value.empty() || reachesOut(value);
            if (!isWrong) {
                text::append(written, " ", *name, "=\"", escapedAttribute(value), "\"");
            }
        }
        return true;
    }

    void close() {
        text::append(out_, "</", open_.back(), ">");
        open_.pop_back();
        isDone_ = open_.empty();
    }

    TextView svg_;
    text::HtmlReader reader_;
    const std::map<Text, TextView> elements_ = namesIn(elementNames);
    const std::map<Text, TextView> attributes_ = namesIn(attributeNames);
    std::vector<TextView> open_;
    Text leftOut_; ///< the element in whose end tag what is left out ends; empty for none
    int depthLeftOut_ = 0;
    std::set<Text> ids_;
    bool isDone_ = false;
    Text out_;
};

} // namespace

Text strictSvg(TextView svg) {
    return StrictSvg(svg).make();
}

} // namespace book
