#include "editor/forms/FindBar.h"

#include <algorithm>

#include "tools/Replacement.h"
#include "ui/Prompter.h"

namespace editor {

namespace {

/// More are not counted, nor replaced at once.
constexpr std::size_t mostPlaces = 100000;

} // namespace

FindBar::FindBar(ui::Container& container, ui::HtmlBox& body) : Panel(container), body_(body) {
    arrange();
    setVisible(false);
    UI_ON(txtFind, Change);
    UI_ON(txtFind, KeyDown);
    UI_ON(txtReplace, KeyDown);
    UI_ON(chkCase, Click);
    UI_ON(chkWords, Click);
    UI_ON(chkExpression, Click);
    UI_ON(cmdPrevious, Click);
    UI_ON(cmdNext, Click);
    UI_ON(cmdReplace, Click);
    UI_ON(cmdReplaceAll, Click);
    UI_ON(cmdClose, Click);
    pause_.Tick.connect([this] { catchUp(); });
}

void FindBar::arrange() {
    auto find = ui::Layout::row();
    find.withoutMargins().add(txtFind, 1).add(cmdPrevious).add(cmdNext).add(lblCount);
    auto replace = ui::Layout::row();
    replace.withoutMargins().add(txtReplace, 1).add(cmdReplace).add(cmdReplaceAll);
    auto fields = ui::Layout::form();
    fields.withoutMargins().setSpacing(60);
    fields.addField(lblFind, std::move(find)).addField(lblReplace, std::move(replace));
    auto options = ui::Layout::row();
    options.withoutMargins().add(chkCase).add(chkWords).add(chkExpression);
    options.addStretch().add(cmdClose);
    auto content = ui::Layout::column();
    content.withoutMargins().setSpacing(60);
    content.add(std::move(fields)).add(std::move(options));
    setLayout(std::move(content));
    lblCount.setFixedWidth(1500);
}

void FindBar::open(bool forReplacing) {
    const Text selected = body_.selectedText();
    from_ = body_.selection().start;
    if (!selected.empty() && selected.find('\n') == Text::npos && !chkExpression.checked()) {
        txtFind.setText(selected);
    }
    open_ = true;
    setVisible(true);
    Toggled.raise();
    ui::TextBox& field = forReplacing && !txtFind.text().empty() ? txtReplace : txtFind;
    field.setFocus();
    field.selectAll();
    look(true);
}

void FindBar::close() {
    open_ = false;
    pause_.stop();
    setVisible(false);
    body_.setMarks(ui::MarkKind::found, {});
    Toggled.raise();
    body_.setFocus();
}

void FindBar::textChanged() {
    constexpr int patience = 200;
    if (open_) {
        pause_.start(patience);
    }
}

/// The places are again those of the text as it is now.
void FindBar::catchUp() {
    pause_.stop();
    from_ = body_.selection().start;
    look(false);
}

void FindBar::findAll(const Text& text) {
    places_.clear();
    problem_.clear();
    if (txtFind.text().empty()) {
        return;
    }
    auto pattern = tools::TextPattern::make(
        {txtFind.text(), chkExpression.checked(), chkCase.checked(), chkWords.checked()}, problem_);
    if (!pattern) {
        return;
    }
    tools::PatternSearch search(*pattern, text);
    while (places_.size() < mostPlaces && search.next()) {
        if (search.length() > 0) {
            places_.push_back({search.start(), search.length(), {}});
        }
    }
    if (search.failed()) {
        problem_ = "too much to search";
    }
}

/// From where the search began; what is typed further stays at the place where it is.
void FindBar::look(bool showFirst) {
    findAll(body_.countedText());
    body_.setMarks(ui::MarkKind::found, places_);
    const auto behind =
        std::find_if(places_.begin(), places_.end(),
                     [this](const ui::TextMark& place) { return place.start >= from_; });
    const bool wraps = behind == places_.end();
    current_ = 0;
    if (showFirst && !places_.empty()) {
        select(wraps ? 1 : static_cast<std::size_t>(behind - places_.begin()) + 1);
    }
    showCount();
}

void FindBar::select(std::size_t place) {
    current_ = place;
    const ui::TextMark& mark = places_[place - 1];
    body_.select(mark.start, mark.length);
}

void FindBar::showCount() {
    Text count;
    if (!problem_.empty()) {
        count = "Not possible";
    } else if (!txtFind.text().empty()) {
        count = current_ > 0 ? std::to_string(current_) + " of " : "";
        count += places_.empty() ? "Not found" : std::to_string(places_.size());
        count += places_.size() == mostPlaces ? "+" : "";
    }
    lblCount.setCaption(count);
    lblCount.setToolTip(problem_);
}

void FindBar::go(int step) {
    if (pause_.isRunning()) {
        catchUp();
    }
    if (places_.empty()) {
        ui::Prompter::current().beep();
        return;
    }
    const ui::Selection now = body_.selection();
    const auto behind =
        std::find_if(places_.begin(), places_.end(), [&now, step](const ui::TextMark& place) {
            return step > 0
                       ? place.start > now.start || (place.start == now.start && now.length == 0)
                       : place.start >= now.start;
        });
    const auto index = static_cast<std::size_t>(behind - places_.begin());
    const std::size_t count = places_.size();
    select(step > 0 ? index % count + 1 : (index + count - 1) % count + 1);
    from_ = body_.selection().start;
    showCount();
}

void FindBar::txtFind_KeyDown(ui::Key& key) {
    if (key.code == ui::KeyCode::enter) {
        key.handled = true;
        go(key.shift ? -1 : 1);
    }
}

void FindBar::txtReplace_KeyDown(ui::Key& key) {
    if (key.code == ui::KeyCode::enter) {
        key.handled = true;
        cmdReplace_Click();
    }
}

/// One text for each place; empty where there is a problem.
std::vector<Text> FindBar::replacements(const Text& text) {
    std::vector<Text> made;
    auto pattern = tools::TextPattern::make(
        {txtFind.text(), chkExpression.checked(), chkCase.checked(), chkWords.checked()}, problem_);
    if (!pattern) {
        return made;
    }
    const auto replacement =
        chkExpression.checked()
            ? tools::Replacement::forExpression(txtReplace.text(), *pattern, problem_)
            : tools::Replacement(txtReplace.text());
    if (!replacement) {
        return made;
    }
    tools::PatternSearch search(*pattern, text);
    while (made.size() < places_.size() && search.next()) {
        if (search.length() > 0) {
            made.push_back(replacement->madeFor(search));
        }
    }
    return made;
}

/// The place that is selected, and goes on to the next; another one is selected first.
void FindBar::cmdReplace_Click() {
    if (pause_.isRunning()) {
        catchUp();
    }
    const ui::Selection now = body_.selection();
    const auto place =
        std::find_if(places_.begin(), places_.end(), [&now](const ui::TextMark& candidate) {
            return candidate.start == now.start && candidate.length == now.length;
        });
    if (place == places_.end()) {
        go(1);
        return;
    }
    const auto index = static_cast<std::size_t>(place - places_.begin());
    const std::vector<Text> made = replacements(body_.countedText());
    if (index >= made.size()) {
        showCount();
        ui::Prompter::current().beep();
        return;
    }
    body_.nameSteps("Replace");
    body_.replaceSelection(made[index]);
    body_.nameSteps({});
    pause_.stop();
    from_ = now.start + made[index].size();
    look(true);
}

void FindBar::cmdReplaceAll_Click() {
    const Text text = body_.countedText();
    findAll(text);
    // With a problem these are not all.
    const std::vector<Text> made = problem_.empty() ? replacements(text) : std::vector<Text>();
    if (made.empty() || made.size() != places_.size()) {
        showCount();
        ui::Prompter::current().beep();
        return;
    }
    Text changed;
    std::size_t copied = 0;
    for (std::size_t i = 0; i < made.size(); ++i) {
        changed.append(text, copied, places_[i].start - copied);
        changed += made[i];
        copied = places_[i].start + places_[i].length;
    }
    const std::size_t caret = changed.size();
    changed.append(text, copied);
    body_.nameSteps("Replace All");
    body_.edit(changed, caret);
    body_.nameSteps({});
    look(false);
    pause_.stop();
    lblCount.setCaption(std::to_string(made.size()) + " replaced");
}

} // namespace editor
