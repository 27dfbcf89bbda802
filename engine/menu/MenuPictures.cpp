#include "engine/menu/MenuPictures.h"

#include "engine/menu/StandardMenuOverlay.h"
#include "engine/menu/style/Theme.h"
#include "engine/window/StatesMachine.h"

namespace zel {

namespace {

/// The other state of the running fade; null if there is none.
const State* partnerOf(const State& state) {
    const StatesMachine& machine = StatesMachine::getInstance();
    const State* const active = machine.getActiveState();
    const State* const previous = machine.getPreviousState();
    if (&state == active)
        return previous;
    return &state == previous ? active : nullptr;
}

/// Whether a state is drawn before its partner, which isn't drawn at all while it is invisible.
bool isDrawnFirst(const State& state, const State& partner) {
    const StatesMachine& machine = StatesMachine::getInstance();
    const bool isLower = machine.isNewStateOnTop() == (&state == machine.getPreviousState());
    return isLower || partner.getOpacity() <= 0;
}

bool isDrawnLast(const State& state, const State& partner) {
    return !isDrawnFirst(state, partner) || partner.getOpacity() <= 0;
}

template <typename DrawsShared>
void drawPicture(Canvas& canvas, const State& state, PictureOf picture, Blend blend,
                 DrawsShared drawsShared) {
    StateOverlay* overlay = (state.*picture)();
    if (overlay == nullptr)
        return;
    const State* partner = partnerOf(state);
    const bool isShared = partner != nullptr && (partner->*picture)() == overlay;
    if (isShared && !drawsShared(state, *partner))
        return;
    const int32_t alphaBefore = canvas.getAlpha();
    canvas.setBlend(blend);
    canvas.setAlpha(isShared ? 255 : drawAlphaOf(state));
    overlay->render();
    canvas.setAlpha(alphaBefore);
    canvas.setBlend(Blend::Normal);
}

} // namespace

MenuOverlay* themePicture(const ThemeOverlay& named, const String& image) {
    MenuOverlay* overlay = nullptr;
    if (!named.name.empty())
        overlay = MenuOverlay::find(named.name);
    if (overlay == nullptr && !named.name.empty())
        overlay = StandardMenuOverlay::of(named.name, named.options);
    if (overlay == nullptr && !image.empty())
        overlay = StandardMenuOverlay::of(image, {});
    return overlay;
}

int32_t drawAlphaOf(const State& state) {
    const State* partner = partnerOf(state);
    if (partner == nullptr || !StatesMachine::getInstance().sharesBackgroundOverlay() ||
        !isDrawnFirst(state, *partner))
        return state.getOpacityByte();
    return 255 - partner->getOpacityByte();
}

void drawPictureBehind(Canvas& canvas, const State& state, PictureOf picture, Blend blend) {
    drawPicture(canvas, state, picture, blend, isDrawnFirst);
}

void drawPictureInFront(Canvas& canvas, const State& state, PictureOf picture, Blend blend) {
    drawPicture(canvas, state, picture, blend, isDrawnLast);
}

} // namespace zel
