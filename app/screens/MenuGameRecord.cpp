#include "app/screens/MenuGameRecord.h"

#include <algorithm>

#include "app/book/LogBookText.h"
#include "app/book/ServiceText.h"
#include "app/book/ServiceWording.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/screens/BookPage.h"
#include "app/screens/CitationPile.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr size_t Ranks = 3;
constexpr size_t RankLetters = 24;
constexpr size_t Medals = 5;
constexpr int32_t MostPalms = 4; // that a picture has

/// How machines are laid out in rows: the step from one to the next, how many a row has, the pixels
/// of a row, and the space after each fifth.
struct TallyLayout {
    const char* images;
    int32_t step, perRow, height, afterFive;
};
constexpr TallyLayout LargeRows = {"tally", 37, 22, 34, 6};
constexpr TallyLayout SmallRows = {"small", 21, 40, 17, 4};
constexpr size_t MostLarge = 44;
constexpr size_t MostSmall = 160;
constexpr const char* ShapeNames[] = {"scout", "two",     "three",
                                      "mono",  "balloon", "ground"}; // by Shape

/// The cross is drawn with up to four palms; its text counts them all.
zel::String medalImage(const AwardRow& award, int32_t palms) {
    const zel::String image = "medal_" + zel::String(award.key);
    return award.key == "croix" && palms > 0 ? image + std::min(palms, MostPalms) : image;
}

zel::String dateOf(int32_t date) { return shortDate(Calendar::ofNumber(date)); }

} // namespace

void MenuGameRecord::onEnter() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    const PilotRecord pilot = showPilot(*career, career->playerPilot);
    setText("unit", unitNearText(*career));
    showRanks(pilot.honours);
    showCase(pilot.honours);
    showVictories(pilot);
    setText("note", "");
    setActive("webPage", !pilot.flights.empty());
    showWayBack(*career);
}

/// Leads to the next citation instead if one has led here. The log book leads to the office, and
/// would skip those that wait.
void MenuGameRecord::showWayBack(const Database& career) {
    if (!isReopened())
        onward = pile.back(career);
    setVisible("logbook", onward == nullptr);
    zel::Widget* plate = getWidget("menuBack");
    if (plate != nullptr && onward != nullptr)
        plate->setTransition(onward);
}

void MenuGameRecord::onEvent(zel::Widget* widget, int32_t eventType) {
    PilotScreen::onEvent(widget, eventType);
    const Database* career = runningCareer();
    if (widget->getName() != "webPage" || career == nullptr)
        return;
    widget->reset();
    setText("note", writeBookPage(record, *career));
}

/// The newest ones.
void MenuGameRecord::showRanks(const Honours& honours) {
    const size_t count = honours.ranks.size();
    const size_t first = count > Ranks ? count - Ranks : 0;
    for (size_t i = 0; i < Ranks; ++i) {
        zel::String line;
        if (first + i < count) {
            const RankGiven& one = honours.ranks[first + i];
            line = column(one.rank->name, RankLetters) + dateOf(one.date);
        }
        setText(zel::String("rank") + int32_t(i + 1), line);
    }
}

/// The highest, in the order in which they came.
void MenuGameRecord::showCase(const Honours& honours) {
    std::vector<AwardGiven> worn = honours.ribbons();
    worn.resize(std::min(worn.size(), Medals));
    std::stable_sort(worn.begin(), worn.end(),
                     [](const AwardGiven& a, const AwardGiven& b) { return a.date < b.date; });
    for (size_t i = 0; i < Medals; ++i) {
        const zel::String number(int32_t(i + 1));
        const bool isShown = i < worn.size();
        showImage("medal" + number,
                  isShown ? medalImage(*worn[i].award, honours.palms) : zel::String());
        setText("medalText" + number, isShown ? awardCard(worn[i], honours) : zel::String());
    }
}

void MenuGameRecord::showVictories(const PilotRecord& pilot) {
    setText("victoriesKinds", pilot.isUnreadable
                                  ? zel::String()
                                  : textOf(wording::LastMonth, {victoriesOfLastMonth(pilot)}));
    zel::Widget* widget = getWidget("victories");
    if (widget == nullptr)
        return;
    setActive("victories", false); // not a button
    const auto count = std::min(size_t(std::max(pilot.victoryCount, 0)), MostSmall);
    const TallyLayout& rows = count > MostLarge ? SmallRows : LargeRows;
    const zel::PixelRect& place = widget->getBounds().rect;
    victories.begin(place.width, place.height);
    // Those that the record doesn't have come first, as scouts.
    const size_t unknown = count - std::min(count, pilot.victories.size());
    for (size_t i = 0; i < count; ++i) {
        const Shape shape =
            i < unknown ? Shape::Scout : shapeOf(pilot.victories[i - unknown].machine);
        const int32_t inRow = int32_t(i) % rows.perRow;
        victories.draw(zel::String(rows.images) + "_" + ShapeNames[size_t(shape)],
                       inRow * rows.step + inRow / 5 * rows.afterFive,
                       int32_t(i) / rows.perRow * rows.height);
    }
    victories.show(*menu, "victories");
}
