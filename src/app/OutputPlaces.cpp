#include "app/OutputPlaces.h"

#include <algorithm>

#include "platform/Files.h"

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr const char* projectKey = "Project";
constexpr std::size_t mostPlaces = 20;

/// The first place's keys have no number.
std::string keyOf(const char* name, std::size_t slot) {
    return slot == 0 ? name : name + std::to_string(slot + 1);
}

} // namespace

/// The last one first.
std::vector<OutputPlaces::Place> OutputPlaces::known() const {
    std::vector<Place> places;
    for (std::size_t slot = 0; slot < mostPlaces; ++slot) {
        const fs::path project = settings_.path(section_, keyOf(projectKey, slot));
        if (project.empty()) {
            break;
        }
        places.push_back({project, settings_.path(section_, keyOf(key_, slot))});
    }
    return places;
}

fs::path OutputPlaces::choose(const fs::path& project, ui::Window& window, bool ask,
                              const Question& question) const {
    const std::vector<Place> places = known();
    const auto place = std::find_if(places.begin(), places.end(), [&project](const Place& each) {
        return each.project == project;
    });
    fs::path last = place != places.end() ? place->output : fs::path();
    if (!ask && !last.empty()) {
        return last;
    }
    const auto chosen = ui::Prompter::current().chooseFile(&window, question(last));
    return chosen ? platform::fullPath(*chosen) : fs::path();
}

void OutputPlaces::remember(const fs::path& project, const fs::path& place) {
    std::vector<Place> places = known();
    std::erase_if(places, [&project](const Place& each) { return each.project == project; });
    places.insert(places.begin(), {project, place});
    places.resize(std::min(places.size(), mostPlaces));
    for (std::size_t slot = 0; slot < places.size(); ++slot) {
        settings_.setPath(section_, keyOf(projectKey, slot), places[slot].project);
        settings_.setPath(section_, keyOf(key_, slot), places[slot].output);
    }
}

} // namespace app
