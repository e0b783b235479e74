#include "compile/Contexts.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "compile/SitemapSource.h"

namespace compile {

namespace {

class ContextReader {
public:
    ContextReader(const workshop::HelpProject& project, const PlaceOf& placeOf, SourceFiles& files,
                  Messages& messages)
        : project_(project), placeOf_(placeOf), files_(files), messages_(messages) {}

    Contexts read() {
        readNumbers();
        for (const workshop::Alias& alias : project_.aliases) {
            take(alias);
        }
        sayUnused();
        return std::move(contexts_);
    }

private:
    void readNumbers() {
        for (const workshop::ContextNumber& each : project_.numbers) {
            const auto [known, isNew] = numbers_.emplace(each.name, each.number);
            if (!isNew && known->second != each.number) {
                messages_.warn(placeOf_(each.place), each.name + " has the number "
                                                         + std::to_string(known->second)
                                                         + " already");
            }
            anyCase_.emplace(caseKey(each.name), each.name);
        }
    }

    /// A number may stand in place of a name.
    const std::uint32_t* numberOf(const std::string& name) {
        auto known = numbers_.find(name);
        if (known == numbers_.end()) {
            if (const auto other = anyCase_.find(caseKey(name)); other != anyCase_.end()) {
                known = numbers_.find(other->second);
            } else if (const auto number = workshop::readNumber(name)) {
                known = numbers_.emplace(name, *number).first;
            }
        }
        if (known == numbers_.end()) {
            return nullptr;
        }
        used_.insert(known->first);
        return &known->second;
    }

    void take(const workshop::Alias& alias) {
        const Place place = placeOf_(alias.page);
        const Address address = splitAddress(alias.page.text);
        if (address.path.empty()) {
            messages_.warn(place, "\"" + alias.page.text + "\" names no page");
        }
        const std::size_t file = files_.fromProject(address.path, place);
        const std::uint32_t* number = numberOf(alias.name);
        if (number == nullptr) {
            messages_.warn(place, alias.name + " has no number");
        }
        if (number == nullptr || file == SourceFiles::none) {
            return;
        }
        if (!address.fragment.empty()) {
            files_.wantAnchor(file, address.fragment, place);
        }
        const auto [owner, isNew] = owners_.emplace(*number, alias.name);
        if (isNew) {
            contexts_.insert(
                {*number, {file, packedAddress(files_, file, alias.page.text), place}});
        } else {
            messages_.warn(place, "context " + std::to_string(*number) + " of " + alias.name
                                      + " is given to " + owner->second + " already");
        }
    }

    /// Large headers define many numbers that are no contexts, so this is one note.
    void sayUnused() {
        constexpr int most = 10;
        std::string names;
        int count = 0;
        const workshop::ContextNumber* first = nullptr;
        for (const workshop::ContextNumber& each : project_.numbers) {
            if (used_.insert(each.name).second) { // once, though two sections include it
                first = first == nullptr ? &each : first;
                names += count < most ? (count > 0 ? ", " : "") + each.name : std::string();
                ++count;
            }
        }
        if (count > 0) {
            messages_.note(placeOf_(first->place), std::to_string(count) + " numbers have no page: "
                                                       + names + (count > most ? ", …" : ""));
        }
    }

    const workshop::HelpProject& project_;
    const PlaceOf& placeOf_;
    SourceFiles& files_;
    Messages& messages_;
    std::unordered_map<std::string, std::uint32_t> numbers_;
    std::unordered_map<std::string, std::string> anyCase_; ///< names by their keys
    std::unordered_set<std::string> used_;
    std::map<std::uint32_t, std::string> owners_;
    Contexts contexts_;
};

} // namespace

Contexts readContexts(const workshop::HelpProject& project, const PlaceOf& placeOf,
                      SourceFiles& files, Messages& messages) {
    return ContextReader(project, placeOf, files, messages).read();
}

void dropMissing(Contexts& contexts, const SourceFiles& files, Messages& messages) {
    std::erase_if(contexts, [&](const auto& context) {
        const auto& [number, page] = context;
        if (!files.isLeftOut(page.file)) {
            return false;
        }
        messages.warn(page.place, "context " + std::to_string(number) + " leads to "
                                      + files[page.file].relative + ", which is left out");
        return true;
    });
}

} // namespace compile
