#include <algorithm>
#include <limits>
#include <string>

#include "batch/BatchBook.h"
#include "batch/BatchCompile.h"
#include "batch/BatchConvert.h"
#include "batch/BatchGenerate.h"
#include "batch/BatchHelp.h"
#include "batch/BatchImports.h"
#include "batch/BatchProject.h"
#include "batch/BatchReplace.h"
#include "batch/BatchTools.h"
#include "batch/BatchWeb.h"
#include "generate/Documentation.h"
#include "model/ProjectFormat.h"
#include "platform/Files.h"

namespace batch {
namespace {

namespace fs = std::filesystem;
using model::Project;

constexpr const char* documentationTitle = "Generate Documentation";

ExitCode runDocument(BatchSession& session, const CommandLine& arguments) {
    fs::path output = arguments.path(1);
    Project project;
    if (!loadWhole(session, arguments.path(0), project)
        || refuseEmpty(session, project, documentationTitle)
        || !prepareOutput(session, documentationTitle, "htm", project.projectPath(), output)) {
        return exitFailed;
    }
    const model::FileFailures failures =
        generate::generateDocumentation(project, output, project.projectPath().parent_path());
    session.console.failures(documentationTitle, failures);
    session.console.message(generate::documentationComplete());
    return failures.empty() ? exitDone : exitFailed;
}

ExitCode runInfo(BatchSession& session, const CommandLine& arguments) {
    Project project;
    if (!loadWhole(session, arguments.path(0), project)) {
        return exitFailed;
    }
    const auto& topics = project.outline();
    int deepest = 0;
    for (const model::Topic& topic : topics) {
        deepest = std::max(deepest, model::levelDepth(topic.level));
    }
    const auto fact = [&session](const char* name, std::ptrdiff_t number) {
        session.console.result(name + std::to_string(number));
    };
    const auto topicsWith = [&topics](auto condition) {
        return std::count_if(topics.begin(), topics.end(), condition);
    };
    const std::ptrdiff_t empty =
        topicsWith([](const model::Topic& topic) { return topic.body.empty(); });
    session.console.result("Name: " + text::oneLine(project.options().projectName));
    fact("Topics: ", topics.count());
    fact("Levels: ", deepest);
    fact("Bodies: ", topics.count() - empty);
    fact("Empty topics: ", empty);
    fact("Contexts: ",
         topicsWith([](const model::Topic& topic) { return !topic.contextId.empty(); }));
    fact("Format: ", static_cast<int>(formatFor(project.options())));
    session.console.result("Language: " + text::oneLine(project.options().languageTag));
    return exitDone;
}

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

constexpr BatchCommand commands[] = {
    {"generate", "PROJECT.tsp OUTPUT.hhp [--keep-edited]",
     "Writes the help workshop's sources, saves the project, prints the report; with "
     "--keep-edited only if no page was edited since it was generated.",
     2, 2, generateSources, "--keep-edited"},
    {"compile",
     "PROJECT.tsp OUTPUT.chm | PROJECT.hhp [OUTPUT.chm] [--strict] [--jobs N] [--quiet] "
     "[--keep-edited]",
     "Makes a compiled help: of a project, whose sources are generated beside it as above, or of "
     "any workshop project, which stays as it is. With --strict nothing is made after a warning.",
     1, 2, compileHelp, "--strict --jobs= --quiet --keep-edited"},
    {"document", "PROJECT.tsp OUTPUT.htm", "Writes the whole outline as one HTML page.", 2, 2,
     runDocument},
    {"web", "PROJECT.tsp FOLDER [--clean]",
     "Makes a web site: pages, contents, index and search. Files of the site that are no longer "
     "wanted are removed, with --clean all that are there; files of others stay.",
     2, 2, makeWebSite, "--clean"},
    {"epub", "PROJECT.tsp OUT.epub", "Writes the project as an electronic book (EPUB 3).", 2, 2,
     makeEpub},
    {"import-vb", "PROJECT.tsp APP.vbp [--strict]",
     "Appends topics for the forms of a Visual Basic 6 project.", 2, 2, importVb, "--strict"},
    {"import-text", "PROJECT.tsp OUTLINE.txt [--strict]",
     "Appends topics from lines of outline number, title and description, with tabs between.", 2, 2,
     importText, "--strict"},
    {"import-topics", "PROJECT.tsp OTHER.tsp [POSITION...] [--strict]",
     "Appends topics of another project, all of them or those at the positions.", 2, anyNumber,
     importTopics, "--strict"},
    {"export-topics", "PROJECT.tsp OUT.tsp",
     "Writes the topics as import-topics reads them; lists what is lost on the way, as convert.", 2,
     2, exportTopics},
    {"import-help",
     "PROJECT.tsp HELP.chm|HELP.hhp [--under POSITION] [--only PATTERN] [--cut] [--keep-repeated] "
     "[--strict]",
     "Takes topics, pictures and files over from a compiled help or a workshop's project; --only "
     "those whose page's path fits, such as \"html/setup*\". With --cut pages are cut where the "
     "contents lead into them; with --keep-repeated headers and navigation of other tools stay.",
     2, 2, importHelp, "--under= --only= --cut --keep-repeated --strict"},
    {"import-pages", "PROJECT.tsp PAGE.md|PAGE.htm... [--under POSITION] [--cut] [--strict]",
     "Makes topics of texts in Markdown and of pages that a word processor or another program "
     "saved, with their pictures; with --cut each heading is a topic.",
     2, anyNumber, importPages, "--under= --cut --strict"},
    {"synchronise", "PROJECT.tsp [--strict]",
     "Takes edits of the pages in the html folder beside the project back into its topics.", 1, 1,
     synchronise, "--strict"},
    {"find", "PROJECT.tsp TEXT [--match-case] [--whole-words] [--bodies]",
     "Lists where a text stands: position, part and offset in it, title, with tabs between.", 2, 2,
     find, "--match-case --whole-words --bodies"},
    {"replace",
     "PROJECT.tsp FIND REPLACE [--expression] [--match-case] [--whole-words] [--visible] "
     "[--in PARTS] [--dry-run]",
     "Replaces a text, or what a regular expression matches, in all topics and lists the places: "
     "position, part, line in it, what stood there, with tabs between. With --visible, mark-up "
     "stays as it is; PARTS are some of title,description,keywords,body.",
     3, 3, replace, "--expression --match-case --whole-words --visible --in= --dry-run"},
    {"rename", "PROJECT.tsp OLD NEW [--dry-run]",
     "Gives a topic's page another name, changes the links that lead there and lists them: "
     "position, text, line in it, address, new address, with tabs between.",
     3, 3, rename, "--dry-run"},
    {"spell", "PROJECT.tsp [--language CODE] [--words FILE]",
     "Lists unknown words: position of the topic, part, count, word, with tabs between.", 1, 1,
     spell, "--language= --words="},
    {"check", "PROJECT.tsp [--output FOLDER]",
     "Lists what the help workshop or a reader would stumble over: position of the topic, kind of "
     "fault, what it is, with tabs between.",
     1, 1, check, "--output="},
    {"verify", "HELP.chm [--against PROJECT.hhp]",
     "Lists what is wrong with a compiled help file, and where it differs from its project.", 1, 1,
     verify, "--against="},
    {"info", "PROJECT.tsp", "Prints facts about a project, one per line.", 1, 1, runInfo},
    {"convert", "PROJECT.tsp OUT.tsp [--format 1|2] [--language TAG]",
     "Writes the project in another format or language; lists what format 1 cannot keep: position "
     "of the topic, part, what, with tabs between.",
     2, 2, convert, "--format= --language="},
};

} // namespace

std::span<const BatchCommand> batchCommands() {
    return commands;
}

} // namespace batch
