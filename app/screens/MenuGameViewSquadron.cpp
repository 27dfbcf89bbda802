#include "app/screens/MenuGameViewSquadron.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"

namespace {

constexpr int32_t SquadronRows = 12;

} // namespace

void MenuGameViewSquadron::onEnter() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    const std::vector<zel::String> lines = squadronLines(*career);
    showLines("pilot", lines);
    showRows(1, lines.size(), SquadronRows);
    showSquadron();
}
