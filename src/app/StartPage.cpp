#include "app/StartPage.h"

namespace app {

StartPage::StartPage(ui::Container& container) : Panel(container) {
    constexpr int gap = 120;
    lblHint.setWrapped();
    auto starts = ui::Layout::column();
    starts.withoutMargins().setSpacing(gap / 2);
    const auto offer = [&starts](ui::Button& button, ui::Event<>& event) {
        starts.add(button);
        button.Click.connect([&event] { event.raise(); });
    };
    offer(cmdAdd, Add);
    offer(cmdOpen, Open);
    offer(cmdText, Text);
    offer(cmdProject, Project);
    offer(cmdHelp, Help);
    offer(cmdExample, Example);
    starts.addStretch();

    auto files = ui::Layout::column();
    files.withoutMargins().setSpacing(gap / 2).add(lblRecent);
    for (int slot = 0; slot < model::RecentFiles::maxFiles; ++slot) {
        auto& button = recent_[static_cast<std::size_t>(slot)];
        button = std::make_unique<ui::Button>(*this, "(none)"); // hidden as long as that is so
        button->Click.connect([this, slot] { Recent.raise(slot); });
        files.add(*button);
    }
    files.addStretch();

    auto choices = ui::Layout::row();
    choices.withoutMargins().setSpacing(2 * gap).add(std::move(starts), 1).add(std::move(files), 1);
    auto content = ui::Layout::column();
    content.setSpacing(gap).add(lblTitle).add(lblHint).add(std::move(choices)).addStretch();
    setLayout(std::move(content));
}

void StartPage::update(bool hasProject, const model::RecentFiles& recent) {
    lblTitle.setCaption(hasProject ? "This project has no topics yet." : "Welcome.");
    lblHint.setCaption(
        "A help is an outline of topics, and each topic becomes a page. Press Ins for "
        "the first one and type its title; Enter adds the next, Alt+Right moves it "
        "one level deeper, F4 shows its page beside the list.");
    const int count = hasProject ? 0 : recent.count();
    lblRecent.setVisible(count > 0);
    for (int slot = 0; slot < model::RecentFiles::maxFiles; ++slot) {
        ui::Button& button = *recent_[static_cast<std::size_t>(slot)];
        button.setVisible(slot < count);
        if (slot < count) {
            button.setPlainCaption(recent.caption(slot));
        }
    }
}

} // namespace app
