#include "tools/forms/frmReplace.h"

#include <algorithm>
#include <chrono>

#include "ui/HelpContext.h"
#include "ui/Prompter.h"
#include "ui/ShowHelp.h"

namespace tools {

namespace {

constexpr const char* title = "Find and Replace";

Text counted(std::size_t count, const char* noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

} // namespace

frmReplace::frmReplace(ui::Window& owner, ReplaceHost& host, ReplaceMemory& memory)
    : Window(Kind::dialog, windowName, &owner), host_(host), memory_(memory),
      lvPlaces(*this, {{"Topic", 2700}, {"Text", 6300}}, rows_) {
    setCaption(title);
    setHelpContext(ui::replaceHelp);
    lvPlaces.setAccessibleName("Places");
    for (ui::CheckBox& box : chkParts) {
        box.setChecked(true);
    }
    txtFind.setText(memory_.find);
    txtReplace.setText(memory_.with);
    arrange();
    connectControls();
    update();
    ask({});
}

void frmReplace::arrange() {
    auto fields = ui::Layout::form();
    fields.withoutMargins().addField(lblFind, txtFind).addField(lblReplace, txtReplace);
    auto first = ui::Layout::column();
    first.withoutMargins().add(chkMatchCase).add(chkWholeWords).addStretch();
    auto second = ui::Layout::column();
    second.withoutMargins().add(chkExpression).add(chkVisible).addStretch();
    auto parts = ui::Layout::row();
    for (ui::CheckBox& box : chkParts) {
        parts.add(box);
    }
    fraParts.setLayout(std::move(parts));
    auto choices = ui::Layout::row();
    choices.withoutMargins().add(std::move(first)).addSpace(180).add(std::move(second));
    choices.addStretch().add(fraParts);
    auto ticks = ui::Layout::row();
    ticks.withoutMargins().add(lblState, 1).add(cmdAll).add(cmdNone);
    auto left = ui::Layout::column();
    left.withoutMargins().add(std::move(fields)).add(std::move(choices));
    left.add(lvPlaces, 1).add(std::move(ticks));
    auto buttons = ui::Layout::column();
    buttons.withoutMargins().add(cmdFind).add(cmdStop).addSpace(180).add(cmdReplace);
    buttons.addSpace(180).add(cmdClose).add(cmdHelp).addStretch();
    auto content = ui::Layout::row();
    content.add(std::move(left), 1).addSpace(90).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(11400, 7500);
    cmdFind.setDefault();
}

void frmReplace::connectControls() {
    for (ui::CheckBox* box : {&chkMatchCase, &chkWholeWords, &chkExpression, &chkVisible}) {
        box->Click.connect([this] { changeQuestion(); });
    }
    for (ui::CheckBox& box : chkParts) {
        box.Click.connect([this] { changeQuestion(); });
    }
    UI_ON(txtFind, Change);
    UI_ON(txtReplace, Change);
    for (ui::TextBox* box : {&txtFind, &txtReplace}) {
        box->KeyDown.connect([this](ui::Key& key) {
            if (key.plain() && key.code == ui::KeyCode::down && rows_.rowCount() > 0) {
                key.handled = true;
                lvPlaces.setFocus();
                lvPlaces.select(std::max(lvPlaces.selected(), 1));
            }
        });
    }
    UI_ON(lvPlaces, DblClick);
    UI_ON(lvPlaces, ItemCheck);
    UI_ON(cmdAll, Click);
    UI_ON(cmdNone, Click);
    UI_ON(cmdFind, Click);
    UI_ON(cmdStop, Click);
    UI_ON(cmdReplace, Click);
    UI_ON(cmdClose, Click);
    UI_ON(cmdHelp, Click);
    timer_.Tick.connect([this] { timer_Tick(); });
}

void frmReplace::ask(TextView text) {
    if (isVisible()) {
        activate();
    }
    const bool isLine = !text.empty() && text.find('\n') == TextView::npos;
    if (isLine && !chkExpression.checked()) {
        txtFind.setText(text);
        txtFind_Change();
    }
    txtFind.setFocus();
    txtFind.selectAll();
}

void frmReplace::forget() {
    changeQuestion();
    clearRows();
}

void frmReplace::txtFind_Change() {
    memory_.find = txtFind.text();
    changeQuestion();
}

void frmReplace::txtReplace_Change() {
    memory_.with = txtReplace.text();
}

/// What is listed was an answer to something else.
void frmReplace::changeQuestion() {
    timer_.stop();
    isAsked_ = false;
    lblState.setCaption("");
    update();
}

void frmReplace::clearRows() {
    lvPlaces.rowsReplacing();
    rows_.clear();
    lvPlaces.rowsReplaced();
    update();
}

void frmReplace::update() {
    const bool searches = timer_.isRunning();
    bool any = false;
    for (const ui::CheckBox& box : chkParts) {
        any = any || box.checked();
    }
    cmdFind.setEnabled(!searches && any && !txtFind.text().empty());
    cmdStop.setEnabled(searches);
    cmdReplace.setEnabled(!searches && isAsked_ && rows_.tickedCount() > 0);
    cmdAll.setEnabled(rows_.rowCount() > 0);
    cmdNone.setEnabled(rows_.rowCount() > 0);
}

/// From what the fields say; false, and said so, when that is no expression.
bool frmReplace::makeSearch() {
    Text problem;
    auto pattern = TextPattern::make(
        {txtFind.text(), chkExpression.checked(), chkMatchCase.checked(), chkWholeWords.checked()},
        problem);
    if (!pattern) {
        ui::Prompter::current().tell(this, {"This is no regular expression: " + problem, title,
                                            text::MessageIcon::exclamation});
        return false;
    }
    PlaceQuestion question;
    question.visibleOnly = chkVisible.checked();
    for (std::size_t part = 0; part < topicPartCount; ++part) {
        question.parts[part] = chkParts[part].checked();
    }
    search_.emplace(std::move(*pattern), question);
    return true;
}

void frmReplace::cmdFind_Click() {
    if (!makeSearch() || !host_.storeEdits()) {
        return;
    }
    activate(); // the editor may have asked
    clearRows();
    nextTopic_ = 1;
    isAsked_ = true;
    timer_.start(0);
    update();
}

void frmReplace::cmdStop_Click() {
    endSearch("Stopped. " + found());
}

void frmReplace::endSearch(const Text& state) {
    timer_.stop();
    lblState.setCaption(state);
    update();
}

Text frmReplace::found() const {
    return counted(rows_.places().size(), "place") + " in " + counted(rows_.topicCount(), "topic");
}

/// Searches for a moment, so that the window stays at hand meanwhile.
void frmReplace::timer_Tick() {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds moment(20);
    const Clock::time_point begun = Clock::now();
    timer_.start(0);
    while (timer_.isRunning() && Clock::now() - begun < moment) {
        searchTopic();
    }
}

void frmReplace::searchTopic() {
    const model::TopicOutline& topics = host_.outline();
    if (nextTopic_ > topics.count()) {
        endSearch(found());
        return;
    }
    const int topic = nextTopic_++;
    std::vector<Place> places;
    const auto outcome = search_->search(topics, topic, places, mostPlaces - rows_.places().size());
    rows_.add(topics.at(topic), places, [this](int row, const std::function<void()>& add) {
        lvPlaces.rowInserting(row);
        add();
        lvPlaces.rowInserted();
    });
    if (outcome == PlaceSearch::Outcome::tooMany) {
        endSearch("There are more places than these: " + found());
    } else if (outcome == PlaceSearch::Outcome::tooComplex) {
        endSearch("The expression needs too many steps. " + found());
    } else {
        lblState.setCaption("Searching topic " + std::to_string(topic) + " of "
                            + std::to_string(topics.count()) + ": " + found());
    }
}

void frmReplace::lvPlaces_ItemCheck(int row) {
    const auto [first, last] = rows_.setTicked(row, !rows_.isTicked(row));
    for (int changed = first; changed <= last; ++changed) {
        lvPlaces.rowChanged(changed);
    }
    update();
}

void frmReplace::tickAll(bool ticked) {
    for (int row = 1; row <= rows_.rowCount(); ++row) {
        rows_.setTicked(row, ticked);
        lvPlaces.rowChanged(row);
    }
    update();
}

void frmReplace::cmdReplace_Click() {
    Text problem;
    std::optional<Replacement> replacement(txtReplace.text());
    if (chkExpression.checked()) {
        replacement = search_->replacementFor(txtReplace.text(), problem);
    }
    if (!replacement) {
        ui::Prompter::current().tell(this,
                                     {"This cannot take the place of what is found: " + problem,
                                      title, text::MessageIcon::exclamation});
        return;
    }
    const auto replaced = host_.replace(*search_, rows_.tickedPlaces(), *replacement);
    if (!replaced) {
        return;
    }
    activate(); // likewise
    clearRows();
    changeQuestion();
    Text state = counted(replaced->places, "place") + " in " + counted(replaced->topics, "topic")
                 + " replaced";
    if (replaced->left > 0) {
        state += "; " + counted(replaced->left, "place")
                 + " left, because the text is another one since the search";
    }
    lblState.setCaption(state);
}

void frmReplace::cmdHelp_Click() {
    ui::showHelp(helpContext());
}

} // namespace tools
