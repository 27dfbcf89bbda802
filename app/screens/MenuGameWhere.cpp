#include "app/screens/MenuGameWhere.h"

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/screens/HangingLines.h"
#include "app/screens/ReportPages.h"
#include "app/screens/ScreenWording.h"
#include "app/screens/SketchPainter.h"
#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/Image.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t RowStep = 22; // design pixels
constexpr const char* PlaceFont = "Fonts/map18";
constexpr const char* NumberFont = "Fonts/print20";

} // namespace

MenuGameWhere::MenuGameWhere(ReportPages& pages)
    : CareerScreen("MenuGameWhere"), pages(pages), rows("event", RowStep, {"row"}) {}

MenuGameWhere::~MenuGameWhere() = default;

void MenuGameWhere::onEnter() {
    endsDay = !pages.isFromBook();
    setText("menuButton1", textOf(pages.isFromBook() ? wording::ToTheLogBook : wording::GoOn));
    if (zel::Widget* onward = getWidget("menuButton1"))
        onward->setTransition(pages.next());
    showSketch();
}

void MenuGameWhere::showSketch() {
    std::vector<zel::String> lines;
    const zel::Widget* first = getWidget("event.row1");
    setVisible("sketch", false);
    setVisible("scale", false);
    if (const std::optional<RecordedFlight> flown = pages.shown()) {
        setText("date", bookDate(Calendar::ofNumber(flown->date)));
        MapPoint base;
        const bool hasBase = pages.base(*flown, base);
        const Sketch sketch = sketchOf(*flown, hasBase ? &base : nullptr);
        for (const zel::String& line : sketchLines(sketch))
            addHangingLines(lines, first, line);
        drawSketch(sketch);
    }
    rows.resize(*menu, lines.size());
    for (size_t i = 0; i < lines.size(); ++i)
        setText(rows.name("row", i), lines[i]);
}

void MenuGameWhere::drawSketch(const Sketch& sketch) {
    if (bitmap == nullptr)
        bitmap = std::make_unique<zel::Bitmap>();
    const auto paint = [sketch](int32_t detail) {
        return SketchPainter(sketch, zel::FontHandler::getFont(PlaceFont),
                             zel::FontHandler::getFont(NumberFont), detail)
            .paint();
    };
    if (!bitmap->assign(paint, "sketch"))
        return;
    showPart("sketch", map, {0, 0, SketchPainter::Width, SketchPainter::Height});
    showPart("scale", bar,
             {0, SketchPainter::Height, SketchPainter::BarWidth, SketchPainter::BarHeight});
}

/// A part of the picture as the image of that widget.
void MenuGameWhere::showPart(const char* name, std::unique_ptr<zel::Image>& image,
                             const zel::FrameRect& part) {
    if (image == nullptr) {
        zel::ImageDescription description;
        description.name = name;
        description.frames = {part};
        image = std::make_unique<zel::Image>(*bitmap, description);
    }
    zel::Widget* widget = getWidget(name);
    if (widget == nullptr)
        return;
    for (int32_t look = 0; look < zel::LookCount; ++look)
        widget->setImage(static_cast<zel::WidgetLook>(look), image.get());
    widget->setVisible(true);
}

void MenuGameWhere::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuBack")
        endsDay = false;
}

void MenuGameWhere::onLeave() {
    if (endsDay)
        pages.endDay();
}
