#include "app/screens/WarProgress.h"

#include "app/career/CareerTexts.h"
#include "engine/graphics/Canvas.h"
#include "engine/graphics/Image.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

namespace {

/// Null if the active state is none.
zel::Menu* activeMenu() {
    return dynamic_cast<zel::Menu*>(zel::StatesMachine::getInstance().getActiveState());
}

} // namespace

WarProgress::WarProgress() {
    show(activeMenu(), true);
    setWarObserver(this);
}

WarProgress::~WarProgress() {
    setWarObserver(nullptr);
    show(activeMenu(), false);
}

void WarProgress::show(const zel::Menu* menu, bool shown) {
    if (menu == nullptr)
        return;
    for (const char* name : {"progress", "progressDate"})
        if (zel::Widget* widget = menu->getWidget(name))
            widget->setVisible(shown);
        else if (zel::TextArea* area = menu->getTextArea(name))
            area->setVisible(shown);
}

void WarProgress::onWarProgress(const Calendar& date, float share) {
    zel::Menu* menu = activeMenu();
    if (menu == nullptr || !work.isDue())
        return;
    menu->setText("progressDate", dateInLanguage(date));
    work.showFrame([&] { drawBar(*menu, share); });
}

void WarProgress::drawBar(const zel::Menu& menu, float share) {
    const zel::Widget* widget = menu.getWidget("progress");
    const zel::Image* bar = widget != nullptr ? widget->getImage(zel::LookDown) : nullptr;
    if (bar == nullptr)
        return;
    zel::Canvas& canvas = zel::Canvas::getInstance();
    const zel::Rect place = zel::rectOf(widget->getBounds().rect);
    zel::Rect done = place;
    done.width *= share;
    canvas.pushClip(done);
    bar->drawInto(canvas, place);
    canvas.popClip();
}
