#include "tools/menucheck/ElementCheck.h"

#include <algorithm>
#include <cmath>

#include "engine/graphics/Font.h"
#include "engine/graphics/Image.h"
#include "engine/graphics/TextBreaking.h"
#include "engine/menu/style/Theme.h"
#include "engine/menu/widgets/ScrollingArea.h"
#include "engine/menu/widgets/TextArea.h"
#include "tools/menucheck/ScriptLines.h"

namespace menucheck {

using zel::PixelRect;
using zel::String;

namespace {

struct Standing {
    String name;
    const zel::Bounds* bounds;
    bool isLoose; // moves, or contains moving elements, so it may overlap
    bool isShown; // now, or later by code
};

constexpr const char* LookNames[] = {"active", "inactive", "over", "down"};
constexpr float SizeTolerance = 1; // design pixels by which the drawn size may differ

bool overlap(const PixelRect& a, const PixelRect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

std::vector<Standing> elementsOf(const zel::HandledMenu& menu, const ScriptNotes& notes) {
    std::vector<Standing> elements;
    for (const auto& [name, widget] : menu.getWidgets()) {
        const bool isArea = dynamic_cast<const zel::ScrollingArea*>(widget.get()) != nullptr;
        const zel::Bounds& bounds = widget->getBounds();
        elements.push_back({name, &bounds, isArea || bounds.area != nullptr,
                            widget->isVisible() || notes.isAlternative(name)});
    }
    for (const auto& [name, area] : menu.getTextAreas())
        elements.push_back({name, &area->getBounds(), area->getBounds().area != nullptr,
                            area->isVisible() || notes.isAlternative(name)});
    return elements;
}

void checkOverlaps(const std::vector<Standing>& elements, const ScriptNotes& notes,
                   FindingLog& findings) {
    for (size_t i = 0; i < elements.size(); ++i) {
        for (size_t k = i + 1; k < elements.size(); ++k) {
            const Standing& a = elements[i];
            const Standing& b = elements[k];
            const bool canOverlap = !a.isLoose && !b.isLoose && a.isShown && b.isShown;
            if (canOverlap && overlap(a.bounds->rect, b.bounds->rect) &&
                !notes.mayOverlap(a.name, b.name))
                findings.add(findings.sourceOf(a.name), a.name + " overlaps " + b.name);
        }
    }
}

void checkPlaces(const zel::HandledMenu& menu, const ScriptNotes& notes, FindingLog& findings) {
    const std::vector<Standing> elements = elementsOf(menu, notes);
    for (const Standing& element : elements) {
        const PixelRect& place = element.bounds->rect;
        const Source source = findings.sourceOf(element.name);
        if (place.width < 1 || place.height < 1)
            findings.add(source, element.name + " has no size");
        else if (element.bounds->area == nullptr &&
                 (place.x < 0 || place.y < 0 || place.x + place.width > zel::DesignWidth ||
                  place.y + place.height > zel::DesignHeight))
            findings.add(source, element.name + " reaches out of the screen");
    }
    checkOverlaps(elements, notes, findings);
}

bool hasAllGlyphs(const String& name, const zel::Text& label, const Source& source,
                  FindingLog& findings) {
    const zel::Font& font = *label.getFont();
    bool hasAll = true;
    for (const char character : label.getText().view()) {
        const zel::Glyph* glyph = font.glyph(character);
        // Fonts that cover all codes give the unused ones a width of 0.
        if (character == '\n' || character == '\t' || (glyph != nullptr && glyph->xAdvance > 0))
            continue;
        hasAll = false;
        findings.add(source, name + ": the font " + font.getName() + " has no character " +
                                 static_cast<int32_t>(static_cast<uint8_t>(character)) + " of " +
                                 label.getText());
    }
    return hasAll;
}

/// Checks the font, the characters and the size of a text.
void checkText(const String& name, const zel::Text& label, const Source& source,
               FindingLog& findings) {
    if (zel::trimmed(label.getText(), ' ').empty())
        return;
    if (label.getFont() == nullptr) {
        findings.add(source, name + " has a text and no font");
        return;
    }
    if (!hasAllGlyphs(name, label, source, findings))
        return;
    const auto height = static_cast<int32_t>(label.getRect().height);
    if (label.isCut())
        findings.add(source, name + ": the text doesn't fit: " + label.getText());
    else if (label.height() > height)
        findings.add(source, name + ": the text is " + label.height() +
                                 " pixels high in a room of " + height + ": " + label.getText());
}

/// Reports words that are wider than their text area: they are broken anywhere.
void checkWords(const zel::TextArea& area, const Source& source, FindingLog& findings) {
    const zel::Text& label = area.getLabel();
    if (label.getFont() == nullptr)
        return;
    std::string text = zel::plainText(label.getText());
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::vector<String> words;
    String(text).split(" ", words);
    for (const String& word : words) {
        if (static_cast<float>(label.getFont()->width(word)) > label.getRect().width)
            findings.add(source, area.getName() + ": a word is wider than its room: " + word);
    }
}

bool isDrawnAsItIs(const zel::Image& image, const PixelRect& place) {
    const auto isNear = [](float drawn, int32_t given) {
        return std::abs(drawn - static_cast<float>(given)) <= SizeTolerance;
    };
    return isNear(image.width(), place.width) && isNear(image.height(), place.height);
}

void checkImages(const zel::Widget& widget, const ScriptNotes& notes, const Source& source,
                 FindingLog& findings) {
    const PixelRect& place = widget.getBounds().rect;
    const zel::Image* stretched = nullptr; // one report is enough: looks share a size
    for (size_t i = 0; i < zel::LookCount; ++i) {
        const zel::Image* image = widget.getImage(static_cast<zel::WidgetLook>(i));
        if (image == nullptr)
            findings.add(source, widget.getName() + " has no " + LookNames[i] + " image");
        else if (stretched == nullptr && !isDrawnAsItIs(*image, place) &&
                 notes.stretched.count(image->getName()) == 0)
            stretched = image;
    }
    if (stretched != nullptr)
        findings.add(source, widget.getName() + ": the image " + stretched->getName() + " of " +
                                 zel::formatFloat(stretched->width()) + " by " +
                                 zel::formatFloat(stretched->height()) + " is drawn as " +
                                 place.width + " by " + place.height +
                                 " (#check stretch allows it)");
}

/// Whether it looks pressable to a player: it reacts to the pointer, or has a sound. Text inputs
/// and scrolling areas react by themselves.
bool looksPressable(const zel::Widget& widget, const zel::Theme* theme) {
    const String& kind = widget.getKind();
    if (kind == "textinput" || kind == "scrollingarea")
        return false;
    static const zel::Theme none;
    const zel::Theme& looks = theme != nullptr ? *theme : none;
    const zel::WidgetStyle& style = looks.widgetStyle(kind);
    const auto colorOf = [&](zel::WidgetLook look) {
        return style.textColors[look] ? style.textColors[look] : looks.textColors[look];
    };
    const auto differs = [&](zel::WidgetLook look) {
        return widget.getImage(look) != widget.getImage(zel::LookActive) ||
               style.tints[look] != style.tints[zel::LookActive] ||
               (!widget.getText().empty() && colorOf(look) != colorOf(zel::LookActive));
    };
    return kind == "button" || !style.sound.empty() || differs(zel::LookOver) ||
           differs(zel::LookDown);
}

void checkAnswer(const zel::Widget& widget, zel::HandledMenu& menu, const ScriptNotes& notes,
                 const Source& source, FindingLog& findings) {
    const String name = widget.getName();
    const std::vector<zel::MenuConfigFile::Section>& sections = menu.getScript().getSections();
    const bool isCode = notes.code.count(name) != 0;
    const bool hasSection = std::any_of(sections.begin(), sections.end(), [&](const auto& section) {
        return zel::equalsNoCase(hitWidgetOf(section), name);
    });
    const bool hasTarget = !widget.getTransition().empty();
    if (isCode && hasTarget)
        findings.add(source, name + " is answered by code and must have no target");
    if (looksPressable(widget, menu.getTheme()) && !isCode && !hasSection && !hasTarget)
        findings.add(source, name + " can be pressed and does nothing");
}

/// Checks each text that code may set, in its element.
void checkWidest(zel::HandledMenu& menu, const ScriptNotes& notes, FindingLog& findings) {
    for (const ScriptNotes::WidestText& note : notes.widest) {
        zel::Widget* widget = menu.getWidget(note.element);
        zel::TextArea* area = widget == nullptr ? menu.getTextArea(note.element) : nullptr;
        if (widget == nullptr && area == nullptr)
            continue;
        const String before = widget != nullptr ? widget->getText() : area->getText();
        menu.setText(note.element, note.text);
        checkText(note.element, widget != nullptr ? widget->getLabel() : area->getLabel(),
                  note.source, findings);
        if (area != nullptr)
            checkWords(*area, note.source, findings);
        menu.setText(note.element, before);
    }
}

/// Checks widgets with each kind that code may give them. They keep the last one.
void checkKinds(zel::HandledMenu& menu, const ScriptNotes& notes, FindingLog& findings) {
    for (const auto& [kind, names] : notes.kinds) {
        const zel::Theme* theme = menu.getTheme();
        const bool isKnown = theme != nullptr && theme->widgets.count(kind.toLower()) != 0;
        for (const auto& [name, source] : names) {
            const zel::Widget* widget = menu.getWidget(name);
            if (!isKnown) {
                findings.add(source, String("the theme has no kind ") + kind);
            } else if (widget != nullptr) {
                menu.setWidgetKind(name, kind);
                checkImages(*widget, notes, source, findings);
                checkText(name, widget->getLabel(), source, findings);
            }
        }
        checkWidest(menu, notes, findings);
    }
}

} // namespace

void checkElements(zel::HandledMenu& menu, const ScriptNotes& notes, FindingLog& findings) {
    checkPlaces(menu, notes, findings);
    for (const auto& [name, widget] : menu.getWidgets()) {
        const Source source = findings.sourceOf(name);
        checkImages(*widget, notes, source, findings);
        checkText(name, widget->getLabel(), source, findings);
        if (widget->getText().find('\n') >= 0)
            findings.add(source, name + ": a widget's text has one line: " + widget->getText());
        checkAnswer(*widget, menu, notes, source, findings);
    }
    for (const auto& [name, area] : menu.getTextAreas()) {
        checkText(name, area->getLabel(), findings.sourceOf(name), findings);
        checkWords(*area, findings.sourceOf(name), findings);
    }
    checkWidest(menu, notes, findings);
    checkKinds(menu, notes, findings);
}

} // namespace menucheck
