#include "app/screens/MenuGameDiary.h"

#include <algorithm>
#include <iterator>

#include "app/book/BookTables.h"
#include "app/book/DiaryText.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/screens/PilotPages.h"
#include "engine/core/Log.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/ScrollingArea.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"

namespace {

// Rows that the script has, and the pixels between two entries.
constexpr int32_t EntryRows = 12;
constexpr int32_t FrontRows = 6;
constexpr int32_t RealRows = 4;
constexpr int32_t SquadronSpace = 14;
constexpr int32_t OtherSpace = 10;
constexpr int32_t CloseSpace = 6;
constexpr int32_t TallestRow = 200;
constexpr int32_t FocusStrokeWidth = 3;
constexpr uint32_t FocusStrokeColour = 0x8E1F17;
constexpr float FocusStrokeAlpha = 0.8F;
constexpr int32_t SignLift = 2;  // of a sign above the top of its text
constexpr int32_t PressLift = 3; // of a pressed line above and below its text

constexpr const char* SignImages[] = { // by DiarySign
    "blank", "sign_scored", "sign_fallen", "sign_joined", "sign_left"};

} // namespace

void MenuGameDiary::onEnter() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    SqliteFile& tables = record.read(*career);
    diary = readDiary(tables, *career, BookTables::instance());
    if (tables.failed())
        zel::log("The diary lacks what the record of the war has: " + tables.problem(), "Book",
                 zel::LogWarning);
    setText("date", daysText(diary.from, diary.until));
    int32_t space = OtherSpace;
    int32_t squadronSpace = SquadronSpace;
    fit("news", diary.front, space);
    closeUp("entry", diary.squadron, squadronSpace);
    entryPresses.resize(*menu, diary.squadron.size());
    newsPresses.resize(*menu, diary.front.size());
    showLines("entry", diary.squadron, EntryRows, squadronSpace);
    showLines("news", diary.front, FrontRows, space);
    space = OtherSpace;
    fit("real", diary.real, space);
    showLines("real", diary.real, RealRows, space);
    constexpr const char* Areas[] = {"entry", "news", "real"};
    for (size_t i = 0; i < std::size(Areas); ++i)
        makeTabStop(Areas[i], marks[i]);
    setText("count", flightOfText(diary.war, diary.war.flown == 0));
    setText("rest", servedText(diary.war));
    strip.show(*menu, "strip", "strip_diary", diary.war);
    setActive("strip", false); // not a button
    zel::Widget* onward = getWidget("menuButton1");
    if (onward != nullptr && isWarOver(*career))
        onward->setTransition("MenuGameWarOver");
    const int32_t back = pages.takeReturn("MenuGameDiary");
    forEachPress([&](const zel::String& name, int32_t pilot) {
        if (pilot == back)
            setFocus(name);
    });
}

/// The distances from the upper edge of the list to the lower edge of each line.
std::vector<int32_t> MenuGameDiary::bottoms(const char* list, const std::vector<DiaryLine>& lines,
                                            int32_t space) const {
    std::vector<int32_t> found;
    zel::TextArea* row = menu->getTextArea(zel::String(list) + ".row1");
    const zel::Widget* area = getWidget(list);
    if (row == nullptr || area == nullptr)
        return found;
    const zel::PixelRect rect = row->getBounds().rect;
    int32_t bottom = rect.y - area->getBounds().rect.y - space;
    for (const DiaryLine& line : lines) {
        row->setRect({rect.x, rect.y, rect.width, TallestRow});
        row->setText(line.text);
        bottom += space + row->getLabel().height();
        found.push_back(bottom);
    }
    row->setRect(rect);
    return found;
}

/// Brings the lines together, or leaves out the least important ones, until they fit on the paper.
/// Their list would scroll, but a line that is cut looks like a fault.
void MenuGameDiary::fit(const char* list, std::vector<DiaryLine>& lines, int32_t& space) {
    const zel::Widget* area = getWidget(list);
    const int32_t room = area != nullptr ? area->getBounds().rect.height : 0;
    const auto doFit = [&] {
        const std::vector<int32_t> ends = bottoms(list, lines, space);
        return ends.empty() || ends.back() <= room;
    };
    if (!doFit())
        space = CloseSpace;
    while (lines.size() > 1 && !doFit())
        lines.erase(std::min_element(
            lines.begin(), lines.end(),
            [](const DiaryLine& a, const DiaryLine& b) { return a.weight < b.weight; }));
}

/// Brings the lines together if they don't fit. If that isn't enough, the list scrolls, and its
/// window ends at a whole line.
void MenuGameDiary::closeUp(const char* list, const std::vector<DiaryLine>& lines, int32_t& space) {
    zel::Widget* area = getWidget(list);
    if (area == nullptr)
        return;
    int32_t& room = area->getBounds().rect.height;
    std::vector<int32_t> ends = bottoms(list, lines, space);
    if (ends.empty() || ends.back() <= room)
        return;
    space = CloseSpace;
    ends = bottoms(list, lines, space);
    if (ends.back() <= room)
        return;
    int32_t whole = room;
    for (const int32_t end : ends)
        if (end <= room)
            whole = end;
    room = whole;
}

void MenuGameDiary::makeTabStop(const char* area, MadePicture& mark) {
    auto* list = dynamic_cast<zel::ScrollingArea*>(getWidget(area));
    if (list == nullptr)
        return;
    list->setTabStop(true);
    const zel::PixelRect& rect = list->getBounds().rect;
    mark.begin(rect.width, rect.height);
    for (int32_t x = 1; x <= FocusStrokeWidth; ++x)
        mark.drawColumn(rect.width - x, 0, rect.height, FocusStrokeColour, FocusStrokeAlpha);
    mark.show(*menu, area);
    for (int32_t look = 0; look < zel::LookCount; ++look)
        if (look != zel::LookOver)
            list->setImage(static_cast<zel::WidgetLook>(look), nullptr);
}

void MenuGameDiary::showLines(const char* area, const std::vector<DiaryLine>& lines, int32_t most,
                              int32_t space) {
    int32_t y = 0;
    for (int32_t i = 0; i < most; ++i) {
        const zel::String number(i + 1);
        const zel::String name = zel::String(area) + ".row" + number;
        zel::TextArea* row = menu->getTextArea(name);
        if (row == nullptr)
            return;
        zel::PixelRect rect = row->getBounds().rect;
        if (i == 0)
            y = rect.y;
        const bool isShown = i < int32_t(lines.size());
        row->setVisible(isShown);
        const zel::String sign = zel::String(area) + ".sign" + number;
        const zel::String press = zel::String(area) + ".press" + number;
        setVisible(sign, isShown);
        if (!isShown) {
            // An element that is hidden still counts for how far its area scrolls.
            row->setRect({rect.x, y - rect.height, rect.width, rect.height});
            showSign(sign, DiarySign::None, y - rect.height);
            showPress(press, -1, y - rect.height, rect.height);
            continue;
        }
        row->setRect({rect.x, y, rect.width, TallestRow});
        row->setText(lines[i].text);
        rect.height = row->getLabel().height();
        row->setRect({rect.x, y, rect.width, rect.height});
        showSign(sign, lines[i].sign, y - SignLift);
        showPress(press, lines[i].pilot, y, rect.height);
        y += rect.height + space;
    }
}

void MenuGameDiary::showSign(const zel::String& name, DiarySign sign, int32_t y) {
    zel::Widget* widget = getWidget(name);
    if (widget == nullptr)
        return;
    const zel::Image* image = zel::ImageHandler::getInstance().getImage(SignImages[size_t(sign)]);
    for (int32_t look = 0; look < zel::LookCount; ++look)
        widget->setImage(static_cast<zel::WidgetLook>(look), image);
    widget->getBounds().rect.y = y;
    widget->setActive(false); // not a button
}

void MenuGameDiary::showPress(const zel::String& name, int32_t pilot, int32_t y, int32_t height) {
    zel::Widget* widget = getWidget(name);
    if (widget == nullptr)
        return;
    widget->setVisible(pilot >= 0);
    zel::PixelRect& rect = widget->getBounds().rect;
    rect.y = y - PressLift;
    rect.height = height + 2 * PressLift;
}

void MenuGameDiary::forEachPress(
    const std::function<void(const zel::String& name, int32_t pilot)>& action) const {
    const std::pair<const RowList&, const std::vector<DiaryLine>&> lists[] = {
        {entryPresses, diary.squadron}, {newsPresses, diary.front}};
    for (const auto& [presses, lines] : lists)
        for (size_t i = 0; i < lines.size(); ++i)
            if (lines[i].pilot >= 0)
                action(presses.name("press", i), lines[i].pilot);
}

void MenuGameDiary::update() {
    if (const Database* career = runningCareer())
        pages.readOn(*career);
}

void MenuGameDiary::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const Database* career = runningCareer();
    forEachPress([&](const zel::String& name, int32_t pilot) {
        if (career != nullptr && widget->getName() == name)
            setTransition(pages.open(*career, pilot, "MenuGameDiary"));
    });
}
