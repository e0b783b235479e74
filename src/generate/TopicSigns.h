#pragma once

#include <filesystem>
#include <map>
#include <vector>

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"

namespace generate {

/// What is wrong with each topic, kept up to date while the outline is edited: a page that another
/// topic has, half a context or one that is given twice, no text, links and pictures that lead
/// nowhere. It knows less than checkProject(), but an edit costs only the topic that was edited. It
/// has to be told of every change.
class TopicSigns {
public:
    /// The outline is not owned.
    explicit TopicSigns(const model::TopicOutline& outline) : outline_(outline) {}

    /// Everything may be another.
    void reset(const model::ProjectOptions& options);

    /// Into which help is generated, where links may lead. Empty when it is not known: then no
    /// picture is missed.
    void setFolder(const std::filesystem::path& folder);

    /// Files may have come or gone.
    void forgetFiles() { files_.clear(); }

    /// True when others may have another sign now.
    bool changed(int position);
    void inserted(int position);
    void removed(int position);
    void swapped(int a, int b);

    /// One line for each problem of a topic; empty when nothing is wrong.
    text::Text problems(int position) const;

private:
    struct Address {
        text::Text place;   ///< the page or file to which it leads
        text::Text key;     ///< by which that is looked for in the outline
        text::Text written; ///< as it stands in the text
        bool isPicture = false;
    };
    struct Facts {
        text::Text page;
        text::Text contextId;
        text::Text contextNumber;

        // Of the text, which is read when somebody asks: most topics are not in view.
        bool isBodyRead = false;
        text::Text bodyFolder; ///< of its page, for which the addresses hold
        std::size_t bodyHash = 0;
        bool isEmpty = true;
        std::vector<Address> addresses;
    };

    static void count(std::map<text::Text, int>& values, const text::Text& value, int by);
    static bool isShared(const std::map<text::Text, int>& values, const text::Text& value);
    static Facts factsOf(const model::Topic& topic, Facts before);
    const Facts& withBody(int position) const;
    static std::vector<Address> addressesOf(const model::Topic& topic);
    void countFacts(const Facts& facts, int by);
    bool exists(const Address& address) const;

    const model::TopicOutline& outline_;
    std::filesystem::path folder_;
    std::vector<text::Text> copied_;   ///< files that generation puts there
    mutable std::vector<Facts> facts_; ///< by position, from 0
    std::map<text::Text, int> pages_;
    std::map<text::Text, int> contextIds_;
    std::map<text::Text, int> contextNumbers_;
    mutable std::map<text::Text, bool> files_; ///< which there are, as far as was asked
};

} // namespace generate
