#include "tools/forms/dlgSpelling.h"

#include <algorithm>

#include "text/TextLines.h"
#include "text/Unicode.h"
#include "ui/HelpContext.h"
#include "ui/Prompter.h"

namespace tools {

Text WordRows::cell(int row, int /*column*/) const {
    return words[static_cast<std::size_t>(row - 1)];
}

std::unique_ptr<dlgSpelling> dlgSpelling::create(ui::Window& owner, SpellingScope scope) {
    ChosenDictionary chosen = chosenDictionary(scope);
    if (chosen.dictionary == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<dlgSpelling>(
        new dlgSpelling(owner, std::move(scope), std::move(chosen.dictionary), chosen.language));
}

dlgSpelling::dlgSpelling(ui::Window& owner, SpellingScope scope,
                         std::unique_ptr<Dictionary> dictionary, const std::string& language)
    : Window(Kind::dialog, "dlgSpelling", &owner), scope_(std::move(scope)),
      dictionary_(std::move(dictionary)), personal_(personalWordsFile(scope_.settings)),
      spelling_(*dictionary_, personal_), lvSuggestions(*this, {{"", 3000}}, rows_) {
    arrange();
    setCaption("Spelling");
    setHelpContext(ui::spellingHelp);
    for (const std::string& known : Dictionary::languages(scope_.folders)) {
        icboLanguage.add(known, known, "");
    }
    icboLanguage.select(language);
    icboLanguage.keepEnter();
    UI_ON(lvSuggestions, ItemClick);
    UI_ON(lvSuggestions, DblClick);
    UI_ON(icboLanguage, Change);
    UI_ON(txtChange, Change);
    UI_ON(cmdChange, Click);
    UI_ON(cmdChangeAll, Click);
    UI_ON(cmdIgnore, Click);
    UI_ON(cmdIgnoreAll, Click);
    UI_ON(cmdAdd, Click);
    UI_ON(cmdCancel, Click);
}

void dlgSpelling::arrange() {
    txtContext.setReadOnly();
    txtContext.setAccessibleName("Not in the dictionary");
    lvSuggestions.hideCaptions();
    auto texts = ui::Layout::column();
    texts.withoutMargins().add(lblContext).add(txtContext, 2).add(lblChange).add(txtChange);
    texts.add(lblSuggestions).add(lvSuggestions, 3);
    auto language = ui::Layout::row();
    language.withoutMargins().add(lblLanguage).add(icboLanguage).addStretch();
    texts.add(std::move(language));
    auto buttons = ui::Layout::column();
    buttons.withoutMargins().addSpace(240).add(cmdIgnore).add(cmdIgnoreAll).add(cmdAdd);
    buttons.addSpace(240).add(cmdChange).add(cmdChangeAll).addStretch().add(cmdCancel);
    auto content = ui::Layout::row();
    content.add(std::move(texts), 1).addSpace(90).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(8400, 5700);
    cmdChange.setDefault();
}

SpellChecker::Outcome dlgSpelling::check(Text& text, TextView place) {
    spelling_.begin(text);
    done_ = !spelling_.next();
    if (!done_) {
        setCaption("Spelling - " + Text(place));
        showWord();
        run();
    }
    text = spelling_.text();
    return done_ ? Outcome::checked : Outcome::cancelled;
}

void dlgSpelling::showNext() {
    done_ = !spelling_.next();
    if (done_) {
        close();
    } else {
        showWord();
    }
}

/// The word stands in the middle of its line, or of as much of it as is of use.
void dlgSpelling::showWord() {
    constexpr std::size_t reach = 300;
    const Text& text = spelling_.text();
    const SpellingWord& word = spelling_.word();
    std::size_t from = word.start - std::min(word.start, reach);
    if (const std::size_t lineEnd = text.rfind('\n', word.start);
        lineEnd != Text::npos && lineEnd >= from) {
        from = lineEnd + 1;
    }
    const std::size_t end = word.start + word.length;
    std::size_t to = std::min({text.find_first_of(text::lineBreak, end), text.size(), end + reach});
    while (from < word.start && text::continuesCharacter(text[from])) {
        ++from;
    }
    while (to < text.size() && text::continuesCharacter(text[to])) {
        ++to;
    }
    txtContext.setText(TextView(text).substr(from, to - from));
    // The box counts every line end as two characters.
    const TextView before = TextView(text).substr(from, word.start - from);
    txtContext.select(text::withLineBreaks(before).size(), word.length);
    lvSuggestions.rowsReplacing();
    rows_.words = spelling_.suggestions();
    lvSuggestions.rowsReplaced();
    offer(rows_.words.empty() ? word.letters : rows_.cell(1, 0));
    txtChange.setFocus();
    txtChange.selectAll();
}

void dlgSpelling::offer(const Text& correction) {
    txtChange.setText(correction);
    txtChange_Change();
}

/// A word is not to be deleted by an Enter too many.
void dlgSpelling::txtChange_Change() {
    cmdChange.setEnabled(!txtChange.text().empty());
    cmdChangeAll.setEnabled(!txtChange.text().empty());
}

void dlgSpelling::lvSuggestions_ItemClick(int row) {
    offer(rows_.cell(row, 0));
}

void dlgSpelling::lvSuggestions_DblClick(int row) {
    lvSuggestions_ItemClick(row);
    cmdChange_Click();
}

void dlgSpelling::icboLanguage_Change() {
    const Text language = icboLanguage.selectedKey();
    std::unique_ptr<Dictionary> chosen = Dictionary::open(scope_.folders, language);
    if (chosen == nullptr) {
        ui::Prompter::current().beep();
        return;
    }
    spelling_.setDictionary(*chosen);
    dictionary_ = std::move(chosen);
    chooseDictionary(scope_, language);
    showNext();
    icboLanguage.setFocus(); // for another try
}

void dlgSpelling::cmdChange_Click() {
    spelling_.change(txtChange.text());
    showNext();
}

void dlgSpelling::cmdChangeAll_Click() {
    spelling_.changeAll(txtChange.text());
    showNext();
}

void dlgSpelling::cmdIgnoreAll_Click() {
    spelling_.ignoreAll();
    showNext();
}

void dlgSpelling::cmdAdd_Click() {
    if (spelling_.add()) {
        ui::Prompter::current().beep(); // it is known until the command ends, at least
    }
    showNext();
}

} // namespace tools
