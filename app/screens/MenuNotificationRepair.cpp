#include "app/screens/MenuNotificationRepair.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/SaveFile.h"
#include "app/screens/CareerDrawer.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/menu/widgets/Widget.h"

namespace {

/// A line for each kind of repair.
zel::String repairLines(const Database& career) {
    const CareerRepairs& repairs = career.repairs;
    std::vector<zel::String> lines;
    const auto add = [&](const zel::String& line) { lines.push_back(line); };
    if (repairs.recovered)
        add(textOf(career.saveCheck.source == SaveSource::Draft ? wording::DraftTaken
                                                                : wording::BackupTaken));
    if (repairs.changed)
        add(textOf(repairs.isFixed() ? wording::ChangedOutside : wording::ChangedSoundly));
    if (repairs.endedEarly)
        add(textOf(wording::EndMissing));
    if (repairs.surplus > 0)
        add(textOf(wording::EndExceeded, {repairs.surplus}));
    const Wording* text = wording::RepairCounts;
    for (const int32_t count :
         {repairs.references, repairs.pilots, repairs.places, repairs.invitation, repairs.values}) {
        if (count > 0)
            add(textOf(*text, {count}));
        ++text;
    }
    if (repairs.playerMoved)
        add(textOf(wording::PlayerMoved, {zel::arrayText(career.player().name)}));
    return joined(lines, "\n");
}

} // namespace

void MenuNotificationRepair::onEnter() {
    const Database* career = Database::instance();
    if (career == nullptr || !career->hasCareer())
        return;
    setText("reason", repairLines(*career));
    const zel::String damaged = zel::system::absolutePath(freeDamagedPath(SaveFileName));
    setText("path", zel::system::shownText(damaged));
    const bool isKept = !career->damagedSave.empty();
    setVisible("text2", isKept);
    setVisible("path", isKept);
    const bool hasEarlier = hasEarlierSave(*career, SaveFileName);
    setVisible("text3", hasEarlier);
    setVisible("text4", !hasEarlier);
    setVisible("menuButton2", hasEarlier);
    if (zel::Widget* onward = getWidget("menuButton1"))
        onward->setTransition(drawer.firstScreen());
}

void MenuNotificationRepair::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    Database* career = Database::instance();
    if (career == nullptr || widget->getName() != "menuButton2")
        return;
    if (!career->loadBackup(SaveFileName))
        return setTransition("BlackScreen");
    if (!career->repairs.any())
        return setTransition(drawer.firstScreen());
    widget->reset(); // it was damaged as well: the screen stays
    onEnter();
}
