#include "app/screens/MenuGameAdvance.h"

#include "app/career/Database.h"
#include "engine/core/Language.h"

namespace {

constexpr int32_t MovedOn = 1102; // of the language tables

} // namespace

void MenuGameAdvance::onEntered() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    setText("line1", zel::Language::get(MovedOn, career->calendar().displayText()));
}
