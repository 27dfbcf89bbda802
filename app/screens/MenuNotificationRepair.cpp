#include "app/screens/MenuNotificationRepair.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/File.h"
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

zel::String savePath(const char* ending) { return zel::getUserDirectory() + SaveFileName + ending; }

} // namespace

void MenuNotificationRepair::onEnter() {
    const Database* career = Database::instance();
    showRepairs(career != nullptr && career->saveCheck.source == SaveSource::Named &&
                zel::File::exists(savePath(BackupEnding)));
}

void MenuNotificationRepair::showRepairs(bool hasBackup) {
    const Database* career = Database::instance();
    if (career == nullptr || !career->hasCareer())
        return;
    setText("reason", repairLines(*career));
    setText("path", zel::system::shownText(zel::system::absolutePath(savePath(DamagedEnding))));
    const bool isKept = !career->damagedSave.empty();
    setVisible("text2", isKept);
    setVisible("path", isKept);
    setVisible("text3", hasBackup);
    setVisible("text4", !hasBackup);
    setVisible("menuButton2", hasBackup);
}

void MenuNotificationRepair::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    Database* career = Database::instance();
    if (career == nullptr || widget->getName() != "menuButton2")
        return;
    if (!career->loadBackup(SaveFileName))
        setTransition("BlackScreen");
    else if (!career->repairs.any())
        setTransition("MenuGameMain");
    else
        showRepairs(false); // it was damaged as well
}
