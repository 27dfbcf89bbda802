#include "engine/menu/widgets/Widget.h"

#include <algorithm>

#include "engine/core/Log.h"
#include "engine/graphics/Image.h"
#include "engine/menu/widgets/ScrollingArea.h"
#include "engine/sound/SoundHandler.h"
#include "engine/window/Mouse.h"
#include "engine/window/State.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"

namespace zel {

namespace {

constexpr const char* WidgetCategory = "Widget";
constexpr int32_t Slip = 40; // design pixels outside that keep a widget armed
constexpr std::string_view AddressMark = "http://";
constexpr const char* LookNames[LookCount] = {"active", "inactive", "over", "down"};

bool isIdle() { return StatesMachine::getInstance().getPhase() == StatesMachine::Idle; }

bool isSame(const PixelRect& a, const PixelRect& b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

} // namespace

Widget* Widget::lastWidgetHit = nullptr;

Widget::Widget(const String& name) : name(name) {
    tints.fill(0xFFFFFFFF);
    textColors.fill(0xFFFFFFFF);
    label.setFlow(TextFlow::Line);
    label.setAlign(AlignX::Centre, AlignY::Centre);
}

Widget::~Widget() {
    if (lastWidgetHit == this)
        lastWidgetHit = nullptr;
}

void Widget::reset() { armed = hit = over = false; }

void Widget::handlePointer(const Pointer& pointer) {
    if (!active || !visible) {
        Widget::reset();
        return;
    }
    const bool isInside = isWithin(bounds.shownRect(), pointer.x, pointer.y);
    const bool isNear = isWithin(bounds.currentRect(), pointer.x, pointer.y, Slip);
    // A fast press and release can fall between two frames, and the pointer may have moved on.
    if (pointer.hasTapped && !pointer.isDown && !armed && isIdle() && wasTapped())
        performHit();
    const bool isDragged = bounds.area != nullptr && bounds.area->isDragged();
    if (isDragged || (!isInside && !(isNear && armed))) {
        over = armed = false;
        pressedElsewhere = pointer.isDown;
        return;
    }
    if (!pressedElsewhere) {
        if (pointer.isDown) {
            armed = armed || isIdle();
        } else {
            if (armed)
                performHit();
            armed = false;
        }
        over = true;
    }
    if (!pointer.isDown)
        pressedElsewhere = false;
}

bool Widget::wasTapped() const {
    const PixelRect shown = bounds.shownRect();
    return Mouse::wasTapped(MenuButton, shown.x, shown.y, shown.width, shown.height);
}

void Widget::performHit() {
    log(name + " was hit", WidgetCategory, LogInfo);
    hit = true;
    lastWidgetHit = this;
    State* state = StatesMachine::getInstance().getActiveState();
    if (isIdle() && state != nullptr) {
        if (!sound.empty())
            SoundHandler::getInstance().play(sound);
        state->onEvent(this, EventHit);
    }
    Mouse::consumeHits();
    if (!transition.empty() && isIdle())
        followTransition();
}

// The reset comes before the change, so that the widget isn't drawn down during the fade.
void Widget::followTransition() {
    if (transition.left(static_cast<int32_t>(AddressMark.size())) == AddressMark) {
        log(name + " opens url " + transition, WidgetCategory, LogDebug);
        Window::openUrl(transition);
        reset();
        return;
    }
    StatesMachine& machine = StatesMachine::getInstance();
    State* target = machine.getState(transition);
    if (target == nullptr) {
        log(name + " sets unknown state transition to: " + transition, WidgetCategory, LogError);
        return;
    }
    log(name + " sets state transition to: " + transition, WidgetCategory, LogDebug);
    reset();
    machine.setActiveState(target, transition.view().front() == '<');
}

WidgetLook Widget::currentLook() const {
    if (!active)
        return LookInactive;
    if (armed || hit)
        return LookDown;
    return over || focused ? LookOver : LookActive;
}

void Widget::setText(const String& newText) {
    text = newText;
    showText(newText);
}

void Widget::showText(const String& shown) {
    if (label.getText() != shown)
        label.setText(shown);
}

void Widget::setAlignment(int32_t bits) {
    AlignX x = AlignX::Centre;
    if ((bits & AlignHorizontal) != 0 && (bits & AlignHCenter) == 0)
        x = (bits & AlignLeft) != 0 ? AlignX::Left : AlignX::Right;
    AlignY y = AlignY::Centre;
    if ((bits & AlignVertical) != 0 && (bits & AlignVCenter) == 0)
        y = (bits & AlignTop) != 0 ? AlignY::Top : AlignY::Bottom;
    label.setAlign(x, y);
}

void Widget::setTextOffset(int32_t x, int32_t y, int32_t newBorderX, int32_t newBorderY) {
    textX = x;
    textY = y;
    borderX = newBorderX;
    borderY = newBorderY;
    labelRect = {};
    placeLabel();
}

void Widget::placeLabel() {
    if (isSame(labelRect, bounds.rect))
        return;
    labelRect = bounds.rect;
    Rect rect = rectOf(labelRect);
    rect.x += static_cast<float>(borderX + textX);
    rect.y += static_cast<float>(borderY + textY);
    rect.width -= static_cast<float>(2 * borderX);
    rect.height -= static_cast<float>(2 * borderY);
    label.setRect(rect);
}

uint32_t Widget::withAlpha(uint32_t argb) const {
    const uint32_t own = argb >> 24;
    return (argb & 0x00FFFFFF) | (own * static_cast<uint32_t>(alpha) / 255) << 24;
}

void Widget::render() {
    if (!visible)
        return;
    Canvas& canvas = Canvas::getInstance();
    if (bounds.area != nullptr)
        canvas.pushClip(rectOf(bounds.area->getBounds().rect));
    drawImage(canvas);
    drawText(canvas);
    if (bounds.area != nullptr)
        canvas.popClip();
}

void Widget::drawImage(Canvas& canvas) {
    WidgetLook look = currentLook();
    if (images[look] == nullptr) {
        if (!warned[look])
            log(String("Widget ") + name + " has no " + LookNames[look] + " image", WidgetCategory,
                LogWarning);
        warned[look] = true;
        look = LookActive;
    }
    if (images[look] == nullptr)
        return;
    const PixelRect drawn{bounds.drawX, bounds.drawY, bounds.rect.width, bounds.rect.height};
    images[look]->drawInto(canvas, rectOf(drawn), 0, withAlpha(tints[look]));
}

void Widget::drawText(Canvas& canvas) {
    if (label.getText().empty())
        return;
    if (label.getFont() == nullptr) {
        if (!warnedFont)
            log(name + " has text but no font assigned", WidgetCategory, LogError);
        warnedFont = true;
        return;
    }
    placeLabel();
    label.setColor(textColors[currentLook()]);
    label.draw(canvas,
               {static_cast<float>(bounds.drawX - bounds.rect.x),
                static_cast<float>(bounds.drawY - bounds.rect.y)},
               alpha);
}

} // namespace zel
