#pragma once

#include "tools/SpellChecker.h"
#include "tools/forms/SpellingSettings.h"
#include "ui/Button.h"
#include "ui/ImageCombo.h"
#include "ui/ListView.h"
#include "ui/Window.h"

namespace tools {

/// Texts as rows without columns' captions.
class WordRows : public ui::ListSource {
public:
    /// UTF-8.
    std::vector<std::string> words;

    int rowCount() const override { return static_cast<int>(words.size()); }
    Text cell(int row, int column) const override;
};

/// Shows the unknown words of texts one by one and asks what to do with them. Where there is no
/// word processor, this checks the spelling.
class dlgSpelling : public ui::Window, public SpellChecker {
    SpellingScope scope_;
    std::unique_ptr<Dictionary> dictionary_;
    PersonalWords personal_;
    Spelling spelling_;
    WordRows rows_; // before the list, which shows it

public:
    /// Null when there is no dictionary in the folders.
    static std::unique_ptr<dlgSpelling> create(ui::Window& owner, SpellingScope scope);

    Outcome check(Text& text, TextView place) override;

    ui::TextBox txtContext{*this, ui::TextBox::Lines::many};
    ui::TextBox txtChange{*this};
    ui::ListView lvSuggestions;
    ui::ImageCombo icboLanguage{*this};
    ui::Label lblContext{*this, "Not in the dictionary:"};
    ui::Label lblChange{*this, "Change &to:", &txtChange};
    ui::Label lblSuggestions{*this, "&Suggestions:", &lvSuggestions};
    ui::Label lblLanguage{*this, "&Dictionary:", &icboLanguage};
    ui::Button cmdChange{*this, "&Change"};
    ui::Button cmdChangeAll{*this, "Change A&ll"};
    ui::Button cmdIgnore{*this, "&Ignore"};
    ui::Button cmdIgnoreAll{*this, "I&gnore All"};
    ui::Button cmdAdd{*this, "&Add"};
    ui::Button cmdCancel{*this, "Cancel"};

    void lvSuggestions_ItemClick(int row);
    void lvSuggestions_DblClick(int row);
    void icboLanguage_Change();
    void txtChange_Change();
    void cmdChange_Click();
    void cmdChangeAll_Click();
    void cmdIgnore_Click() { showNext(); }
    void cmdIgnoreAll_Click();
    void cmdAdd_Click();
    void cmdCancel_Click() { close(); }

private:
    dlgSpelling(ui::Window& owner, SpellingScope scope, std::unique_ptr<Dictionary> dictionary,
                const std::string& language);
    void arrange();
    void showNext();
    void showWord();
    void offer(const Text& correction);

    bool done_ = false; ///< all of the text is checked
};

} // namespace tools
