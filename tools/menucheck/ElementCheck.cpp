#include "tools/menucheck/ElementCheck.h"

#include "engine/graphics/Font.h"
#include "engine/menu/ScrollingArea.h"
#include "engine/menu/TextArea.h"

namespace menucheck {

using zel::Place;
using zel::String;

namespace {

struct Standing {
    String name;
    const zel::Placing* placing;
    bool isLoose; // moves, or holds what moves: it overlaps by nature
};

constexpr const char* LookNames[] = {"active", "inactive", "over", "down"};

bool overlap(const Place& a, const Place& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

std::vector<Standing> elementsOf(const zel::HandledMenu& menu) {
    std::vector<Standing> elements;
    for (const auto& [name, widget] : menu.getWidgets()) {
        const bool isArea = dynamic_cast<const zel::ScrollingArea*>(widget.get()) != nullptr;
        const zel::Placing& placing = widget->getPlacing();
        elements.push_back({name, &placing, isArea || placing.area != nullptr});
    }
    for (const auto& [name, area] : menu.getTextAreas())
        elements.push_back({name, &area->getPlacing(), area->getPlacing().area != nullptr});
    return elements;
}

void checkPlaces(const zel::HandledMenu& menu, const ScriptNotes& notes, Findings& findings) {
    const std::vector<Standing> elements = elementsOf(menu);
    for (size_t i = 0; i < elements.size(); ++i) {
        const Standing& element = elements[i];
        const Place& place = element.placing->place;
        const Source source = findings.sourceOf(element.name);
        if (place.width < 1 || place.height < 1)
            findings.add(source, element.name + " has no size");
        else if (element.placing->area == nullptr &&
                 (place.x < 0 || place.y < 0 || place.x + place.width > zel::DesignWidth ||
                  place.y + place.height > zel::DesignHeight))
            findings.add(source, element.name + " reaches out of the screen");
        for (size_t k = i + 1; k < elements.size() && !element.isLoose; ++k) {
            const Standing& other = elements[k];
            const bool isAllowed = other.isLoose || notes.overlapping.count(element.name) != 0 ||
                                   notes.overlapping.count(other.name) != 0;
            if (!isAllowed && overlap(place, other.placing->place))
                findings.add(source, element.name + " overlaps " + other.name);
        }
    }
}

void checkText(const String& name, const zel::Text& label, const Source& source,
               Findings& findings) {
    const zel::Font* font = label.getFont();
    if (label.getText().empty())
        return;
    if (font == nullptr) {
        findings.add(source, name + " has a text and no font");
        return;
    }
    for (const char character : label.getText().view()) {
        if (character != '\n' && font->glyph(character) == nullptr)
            findings.add(source, name + ": the font " + font->getName() + " has no character " +
                                     static_cast<int32_t>(static_cast<uint8_t>(character)));
    }
    if (label.isCut())
        findings.add(source, name + ": the text doesn't fit: " + label.getText());
}

void checkImages(const zel::Widget& widget, const Source& source, Findings& findings) {
    for (size_t i = 0; i < zel::LookCount; ++i) {
        if (widget.getImage(static_cast<zel::WidgetLook>(i)) == nullptr)
            findings.add(source, widget.getName() + " has no " + LookNames[i] + " image");
    }
}

void checkAnswer(const zel::Widget& widget, zel::HandledMenu& menu, const ScriptNotes& notes,
                 const Source& source, Findings& findings) {
    const String name = widget.getName();
    const bool isCode = notes.code.count(name) != 0;
    bool hasSection = false;
    for (const zel::MenuConfigFile::Section& section : menu.getScript().getSections())
        hasSection = hasSection || zel::equalsNoCase(section.name, String("onhit ") + name);
    if (isCode && !widget.getTransition().empty())
        findings.add(source, name + " is answered by code and must have no target");
    if (widget.getKind() == "button" && !isCode && !hasSection && widget.getTransition().empty())
        findings.add(source, name + " is a button that does nothing");
}

} // namespace

void checkElements(zel::HandledMenu& menu, const ScriptNotes& notes, Findings& findings) {
    checkPlaces(menu, notes, findings);
    for (const auto& [name, widget] : menu.getWidgets()) {
        const Source source = findings.sourceOf(name);
        checkImages(*widget, source, findings);
        checkText(name, widget->getLabel(), source, findings);
        checkAnswer(*widget, menu, notes, source, findings);
    }
    for (const auto& [name, area] : menu.getTextAreas())
        checkText(name, area->getLabel(), findings.sourceOf(name), findings);
    for (const auto& [name, source] : notes.code) {
        if (menu.getWidget(name) == nullptr)
            findings.add(source, String("the screen has no widget ") + name);
    }
}

} // namespace menucheck
