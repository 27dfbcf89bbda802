#include "app/screens/MenuGameCitation.h"

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/screens/ScreenSounds.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"

void MenuGameCitation::onEnter() { showNext(); }

void MenuGameCitation::showNext() {
    if (pile.empty())
        return;
    const Citation citation = pile.take();
    setText("title", citation.title);
    setText("line1", bookDate(Calendar::ofNumber(citation.date)));
    setText("line2", citation.pilot);
    setText("line3", citation.text);
    zel::Widget* medal = getWidget("medal");
    if (medal == nullptr)
        return;
    const zel::Image* image =
        zel::ImageHandler::getInstance().getImage("large_" + zel::String(citation.picture));
    medal->setActive(false); // it is no button
    medal->setVisible(image != nullptr);
    for (int32_t look = 0; look < zel::LookCount && image != nullptr; ++look)
        medal->setImage(static_cast<zel::WidgetLook>(look), image);
}

void MenuGameCitation::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const zel::String name = widget->getName();
    if (name == "record")
        setTransition("MenuGameRecord");
    if (name != "menuButton1")
        return;
    if (pile.empty())
        return setTransition("MenuGameDiary");
    playScreenSound("paper");
    showNext();
}
