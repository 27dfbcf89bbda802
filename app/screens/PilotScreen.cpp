#include "app/screens/PilotScreen.h"

#include "app/book/BookTables.h"
#include "app/book/ServiceText.h"
#include "app/career/Database.h"
#include "app/career/Nation.h"
#include "app/record/CareerRecord.h"
#include "app/screens/PilotPages.h"
#include "engine/core/Log.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr size_t Ribbons = 8;

const char* portraitOf(int32_t nation) {
    return nation == France    ? "portrait_french"
           : nation == Germany ? "portrait_german"
                               : "portrait_english";
}

} // namespace

PilotRecord PilotScreen::showPilot(const Database& career, int32_t pilot) {
    SqliteFile& tables = record.read(career);
    PilotRecord read = readPilot(tables, career, BookTables::instance(), pilot, &pages.rows);
    if (tables.failed())
        zel::log("The page of a pilot lacks what the record of the war has: " + tables.problem(),
                 "Book", zel::LogWarning);
    setText("name", titleOf(read.honours, read.name));
    setText("figures", flyingText(read));
    setText("victoriesHead", victoriesText(read));
    showImage("portrait", portraitOf(read.nation));
    setVisible("fallen", !read.isAlive);
    setActive("fallen", false); // not a button
    showRibbons(read.honours);
    if (read.isUnreadable)
        setVisible("noMedal", false);
    leadBack();
    return read;
}

void PilotScreen::showRibbons(const Honours& honours) {
    const std::vector<AwardGiven> worn = honours.ribbons();
    size_t shown = 0;
    for (const AwardGiven& one : worn) {
        // The Iron Cross of the first class has no ribbon.
        if (one.award->key == "iron1" || shown == Ribbons)
            continue;
        const auto number = int32_t(++shown);
        showImage(zel::String("ribbon") + number, "ribbon_" + zel::String(one.award->key));
        showImage(zel::String("rosette") + number,
                  honours.barOf(*one.award) != nullptr ? "rosette" : zel::String());
    }
    for (; shown < Ribbons; ++shown)
        for (const char* part : {"ribbon", "rosette"})
            showImage(zel::String(part) + int32_t(shown + 1), {});
    setVisible("noMedal", worn.empty());
}

void PilotScreen::leadBack() {
    if (!isReopened())
        origin = pages.takeOrigin();
    if (zel::Widget* back = getWidget("menuBack"))
        back->setTransition(origin.empty() ? "MenuGameMain" : origin);
}

void PilotScreen::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuBack")
        pages.goBack();
}
