#include "compile/Compiler.h"

#include <algorithm>

#include "compile/Contexts.h"
#include "compile/FullTextSearch.h"
#include "compile/HelpIndex.h"
#include "compile/HelpTopics.h"
#include "compile/HelpWindows.h"
#include "compile/PopupTexts.h"
#include "compile/ProjectInput.h"
#include "compile/WordBreaker.h"
#include "platform/Files.h"
#include "text/Address.h"
#include "text/Text.h"

namespace compile {

namespace fs = std::filesystem;

namespace {

std::string replacedEnding(const std::string& name, const char* ending) {
    return name.substr(0, name.rfind('.')) + ending;
}

class Compilation {
public:
    Compilation(ProjectInput input, const CompileOptions& options, Messages& messages)
        : input_(std::move(input)), options_(options), messages_(messages),
          search_(options.fullTextSearch || said().fullTextSearch, said().codePage),
          container_({said().language, 0, options.jobs, options.progress, options.stop}),
          files_({input_.folder, input_.shownFolder, said().codePage, said().flat,
                  options.otherFolder, search_.pageReader()},
                 container_, messages),
          encoder_(said().codePage, messages), topics_(files_, encoder_, strings_) {}

    /// The help's bytes; nothing when it was stopped or cannot be made.
    std::optional<std::string> run() {
        files_.noteRead(input_.file);
        search_.readStopList(said().stopList, placeOf(said().stopList), files_, messages_);
        readSitemaps();
        nameFiles();
        if (!files_.readAll(options_.stop)) {
            return {};
        }
        files_.checkAnchors();
        dropMissing(contexts_, files_, messages_);
        dropMissing(contents_, files_, messages_);
        dropMissing(index_, files_, messages_);
        checkNamedPages();
        packPopups();
        makeContents();
        makeIndex();
        chooseDefaultTopic();
        if (topics_.table.size() == 0 && files_.size() == 0) {
            messages_.fail({input_.shown}, "the project names no file that is there");
            return {};
        }
        packTables();
        return container_.pack();
    }

    const SourceFiles& files() const { return files_; }

private:
    const workshop::Options& said() const { return input_.project.options; }

    Place placeOf(const workshop::Line& line) const { return input_.placeOf(line); }
    Place placeOf(const workshop::WindowType& window) const { return {input_.shown, window.line}; }

    std::string text(std::string_view utf8, const Place& place, const char* what) const {
        return encoder_.text(utf8, place, what);
    }

    /// The file that the options name, or a window.
    workshop::Line sitemapOption(const workshop::Line& option,
                                 std::string workshop::WindowType::*ofWindow) const {
        for (const workshop::WindowType& window : input_.project.windows) {
            if (option.text.empty() && !(window.*ofWindow).empty()) {
                return {window.*ofWindow, window.line};
            }
        }
        return option;
    }

    void readSitemaps() {
        const auto read = [this](const workshop::Line& option) {
            return readSitemapFile(option, placeOf(option), said().codePage, files_, messages_);
        };
        const auto contents = sitemapOption(said().contentsFile, &workshop::WindowType::contents);
        const auto index = sitemapOption(said().indexFile, &workshop::WindowType::index);
        contents_ = read(contents);
        index_ = read(index);
        for (const workshop::WindowType& window : input_.project.windows) {
            checkWindowsOwn(window.contents, contents.text, placeOf(window));
            checkWindowsOwn(window.index, index.text, placeOf(window));
        }
    }

    /// All windows have one contents and one index, as many readers know no more.
    void checkWindowsOwn(const std::string& own, const std::string& used, const Place& place) {
        if (!own.empty() && caseKey(text::plainPath(own)) != caseKey(text::plainPath(used))) {
            messages_.warn(place, "the window shows " + used + " and not " + own
                                      + ", as the help has one for all windows");
        }
    }

    /// Says all files that the project itself wants in the help, in the order in which they are
    /// packed.
    void nameFiles() {
        for (const workshop::Line& line : input_.project.popupFiles) {
            popups_.push_back(files_.reserve(line.text, placeOf(line)));
        }
        for (const workshop::Line& line : input_.project.files) {
            files_.fromProject(line.text, placeOf(line));
        }
        defaultTopic_ = namedPage(said().defaultTopic.text, placeOf(said().defaultTopic));
        for (const workshop::WindowType& window : input_.project.windows) {
            const Place place = placeOf(window);
            windows_.push_back(windowRow(window, place, encoder_, [&](const std::string& page) {
                return namedPage(page, place);
            }));
        }
        contexts_ = readContexts(
            input_.project, [this](const workshop::Line& line) { return placeOf(line); }, files_,
            messages_);
        resolveTargets(contents_, files_, messages_);
        resolveTargets(index_, files_, messages_);
        for (const auto& [name, value] : contents_.map.properties) {
            if (text::equalIgnoringCase(name, "imagelist") && !value.empty()) {
                files_.fromProject(value, {contents_.shown});
            }
        }
    }

    /// A page that the project names, as it is packed; an address elsewhere stays as it is.
    std::string namedPage(const std::string& page, const Place& place) {
        const Address address = splitAddress(page);
        if (page.empty() || address.isElsewhere) {
            return page;
        }
        const std::size_t file = files_.fromProject(address.path, place);
        namedPages_.emplace_back(file, place);
        return file == SourceFiles::none ? std::string() : packedAddress(files_, file, page);
    }

    /// A default topic that was left out gives way to another.
    void checkNamedPages() {
        for (const auto& [file, place] : namedPages_) {
            if (files_.isLeftOut(file)) {
                messages_.warn(place, "names " + files_[file].relative + ", which is left out");
                defaultTopic_ = defaultTopic_ == files_[file].name ? "" : defaultTopic_;
            }
        }
    }

    /// Texts for help in a dialog, whose symbolic names become numbers.
    void packPopups() {
        for (const std::size_t file : popups_) {
            std::string bytes;
            if (file == SourceFiles::none || platform::readFile(files_[file].path, bytes)) {
                continue;
            }
            files_.noteRead(files_[file].path);
            if (!container_.add("/" + files_[file].name,
                                popupTexts(bytes, input_.project.numbers))) {
                messages_.warn({files_.shown(files_[file].relative)},
                               "its name in the help is too long or taken; it is left out");
            }
        }
    }

    void makeContents() {
        if (contents_.name.empty() && said().contentsLevels > 0) {
            contents_ = contentsOfHeadings(files_, said().contentsLevels);
            contents_.name = replacedEnding(platform::utf8FromPath(input_.file.filename()), ".hhc");
            contents_.shown = input_.shown;
        }
        topics_.addPages(contents_);
        const bool isBinary = said().binaryContents && !said().oldFormat;
        const ContentsTree tree = contentsTree(nodes_ = topics_.addContents(contents_, isBinary));
        for (std::size_t i = nodes_.size(); i-- > 0;) { // the first one of a page counts
            if (nodes_[i].topic) {
                topics_.table.setNode(*nodes_[i].topic, tree.offsets[i]);
            }
        }
        hasBinaryContents_ = isBinary && !nodes_.empty();
        if (hasBinaryContents_) {
            sayElsewhere(contents_, messages_);
        }
        contentsBytes_ = hasBinaryContents_ ? tree.bytes : std::string();
        packSitemap(contents_);
    }

    void packSitemap(const SitemapSource& source) {
        if (!source.name.empty()
            && !container_.add("/" + source.name,
                               source.isAsItShouldBe
                                   ? source.bytes
                                   : encoder_.sitemap(workshop::formatSitemap(source.map)))) {
            messages_.warn({source.shown}, "its name in the help is too long or taken");
        }
    }

    void makeIndex() {
        const HelpKeywords keywords = collectKeywords(index_, files_, said().indexFromPages);
        if (!keywords.entries.empty() && index_.name.empty()) {
            index_.name = replacedEnding(platform::utf8FromPath(input_.file.filename()), ".hhk");
            index_.shown = input_.shown;
        }
        if (keywords.anyOfPages || !index_.isAsItShouldBe) {
            index_.isAsItShouldBe = index_.bytes.empty() && keywords.entries.empty();
            index_.map.entries = sitemapEntries(keywords.entries);
        }
        packSitemap(index_);
        const bool isBinary = said().binaryIndex && !said().oldFormat;
        if (isBinary) {
            sayElsewhere(index_, messages_);
        }
        keywordTree_ = keywordTree(isBinary ? treeKeywords(keywords.entries, topics_, encoder_)
                                            : std::vector<Keyword>(),
                                   said().language);
        if (keywords.isCut) {
            messages_.note({index_.shown},
                           "keywords that are too long with those above them stand without these");
        }
        if (keywordTree_.isCut) {
            messages_.note({index_.shown},
                           "a keyword has more pages than a binary index can hold for one");
        }
    }

    void chooseDefaultTopic() {
        for (std::size_t i = 0; i < contents_.files.size() && defaultTopic_.empty(); ++i) {
            if (!contents_.files[i].empty() && contents_.files[i].front() != SourceFiles::none) {
                defaultTopic_ = contents_.map.entries[i].targets.front().page;
            }
        }
        for (std::size_t i = 0; i < files_.size() && defaultTopic_.empty(); ++i) {
            defaultTopic_ = files_[i].isPage && files_[i].isPacked ? files_[i].name : "";
        }
    }

    SystemFacts facts() {
        const Place place = {input_.shown};
        SystemFacts facts;
        facts.contentsFile = text(contents_.name, place, "the file name");
        facts.indexFile = text(index_.name, place, "the file name");
        facts.defaultTopic = text(defaultTopic_, placeOf(said().defaultTopic), "the file name");
        facts.title = text(options_.title.empty() ? said().title.text : options_.title,
                           placeOf(said().title), "the title");
        facts.font = text(said().defaultFont.text, placeOf(said().defaultFont), "the font");
        facts.stem =
            text(caseKey(platform::utf8FromPath(options_.output.stem())), place, "the file name");
        facts.language = said().language;
        facts.time = options_.time.value_or(files_.newest().time_since_epoch().count());
        facts.doubleByte = said().doubleByte;
        facts.hasKeywords = !keywordTree_.tree.empty();
        facts.binaryContents = hasBinaryContents_;
        facts.oldFormat = said().oldFormat;
        return facts;
    }

    void packTree(const std::string& folder, const KeywordTree& tree) {
        if (!tree.tree.empty()) {
            container_.add(folder + "BTree", tree.tree);
            container_.add(folder + "Data", tree.data);
            container_.add(folder + "Map", tree.map);
        }
        container_.add(folder + "Property", tree.property);
    }

    void packTables() {
        const std::string search = search_.table(files_, topics_, said(), messages_);
        SystemFacts system = facts();
        system.fullTextSearch = !search.empty();
        completeWindows(windows_, system);
        if (const std::string& name = said().defaultWindow.text;
            !putFirst(windows_, name) && !name.empty()) {
            messages_.warn(placeOf(said().defaultWindow), "no window is called \"" + name + "\"");
        }
        const KeywordTree associative =
            keywordTree(associativeKeywords(files_, topics_), said().language);
        system.hasAssociativeLinks = !associative.tree.empty();
        system.window = input_.project.windows.empty()
                            ? windows_.front().name
                            : text(said().defaultWindow.text, placeOf(said().defaultWindow),
                                   "the window's name");
        container_.add("/#WINDOWS", windowTable(windows_, said().oldFormat, strings_));
        if (!contexts_.empty()) {
            std::map<std::uint32_t, std::string> pages;
            for (const auto& [number, page] : contexts_) {
                pages[number] = text(page.address, page.place, "the file name");
            }
            container_.add("/#IVB", contextTable(pages, strings_));
        }
        packTree("/$WWKeywordLinks/", keywordTree_);
        packTree("/$WWAssociativeLinks/", associative);
        container_.add("/$OBJINST", wordBreaker(said().language));
        container_.add("/$FIftiMain", search);
        if (hasBinaryContents_) {
            container_.add("/#TOCIDX", contentsBytes_);
        }
        for (const SitemapSource* sitemap : {&contents_, &index_}) {
            if (!sitemap->name.empty()) {
                topics_.addFile(sitemap->name);
            }
        }
        std::vector<std::string> merged;
        merged.reserve(input_.project.mergedFiles.size());
        for (const workshop::Line& line : input_.project.mergedFiles) {
            merged.push_back(text(line.text, placeOf(line), "the file name"));
        }
        if (merged.size() > mostMergedFiles) {
            messages_.warn(placeOf(input_.project.mergedFiles[mostMergedFiles]),
                           "the help has room for " + std::to_string(mostMergedFiles)
                               + " merged files; this one and those behind it are left out");
        }
        const ContentsStyle style = contentsStyle(contents_, encoder_);
        system.header = headerTable(topics_.table.size(), contents_.name.empty() ? nullptr : &style,
                                    merged, strings_);
        container_.add("/#IDXHDR", system.header);
        const TopicTable::Bytes tables = topics_.table.bytes();
        container_.add("/#TOPICS", tables.topics);
        container_.add("/#URLTBL", tables.addresses);
        container_.add("/#URLSTR", tables.texts);
        container_.add("/#STRINGS", strings_.bytes());
        container_.add("/#SYSTEM", systemFile(system), Section::plain);
        container_.add("/#ITBITS", {}, Section::plain);
    }

    ProjectInput input_;
    const CompileOptions& options_;
    Messages& messages_;
    FullTextSearch search_;
    Container container_;
    SourceFiles files_;
    TextEncoder encoder_;
    StringTable strings_;
    HelpTopics topics_;
    SitemapSource contents_;
    SitemapSource index_;
    std::vector<std::size_t> popups_;
    std::vector<WindowRow> windows_;
    Contexts contexts_;
    std::string defaultTopic_;
    std::vector<std::pair<std::size_t, Place>> namedPages_; ///< by options and windows
    std::vector<ContentsNode> nodes_;
    std::string contentsBytes_;
    bool hasBinaryContents_ = false;
    KeywordTree keywordTree_;
};

} // namespace

CompileOutcome compileProject(const fs::path& project, const CompileOptions& options) {
    Messages messages;
    CompileOutcome outcome;
    if (auto input = readProjectFile(project, messages)) {
        CompileOptions own = options;
        own.output =
            platform::fullPath(options.output.empty() ? input->output(messages) : options.output);
        outcome.output = own.output;
        const Place place{platform::utf8FromPath(own.output)};
        Compilation compilation(std::move(*input), own, messages);
        const auto bytes = compilation.run();
        outcome.isStopped = own.stop.stop_requested();
        const SourceFiles& files = compilation.files();
        for (std::size_t i = 0; i < files.size(); ++i) {
            outcome.files += files[i].isPacked ? 1U : 0U;
        }
        if (files.hasRead(own.output)) {
            messages.fail(place, "is itself part of the help");
        }
        std::error_code ignored;
        if (options.output.empty() && fs::is_symlink(own.output, ignored)) {
            messages.fail(place, "is a link, and a project may not choose what to replace through "
                                 "one; name the output yourself");
        }
        const bool mayWrite =
            bytes && !messages.hasError() && !(own.strict && messages.hasWarning());
        if (mayWrite) {
            auto error = platform::createFolders(own.output.parent_path());
            error = error ? error : platform::replaceFile(own.output, *bytes);
            if (error) {
                messages.fail(place, "cannot be written: " + error.message());
            }
            outcome.isWritten = !error;
            outcome.size = bytes->size();
        }
    }
    outcome.messages = messages.take();
    return outcome;
}

} // namespace compile
