#pragma once

#include <cstdint>

#include "engine/graphics/Canvas.h"
#include "engine/window/State.h"

namespace zel {

class MenuOverlay;
struct ThemeOverlay;

/// How the full-window pictures of a state are drawn, and what a fade does to them. Two states that
/// show the same picture share it: it is drawn once and at full strength, so that only what is on
/// it fades.

/// A picture of a state, given by its getter so that both states of a fade can be asked.
using PictureOf = StateOverlay* (State::*)() const;

/// The theme's overlay of that name, otherwise the image of that name as an overlay, otherwise the
/// overlay of the theme's image. Null if there is none.
MenuOverlay* themePicture(const ThemeOverlay& named, const String& image);

/// The alpha, 0 to 255, with which the state is drawn in this frame, apart from shared pictures:
/// its opacity. On a background that both states of a fade share, the state drawn first fades out
/// as the other fades in.
int32_t drawAlphaOf(const State& state);

/// Draw one picture. Of two states that share it, the one drawn first draws a picture behind the
/// elements, and the one drawn last a picture in front of them.
void drawPictureBehind(Canvas& canvas, const State& state, PictureOf picture, Blend blend);
void drawPictureInFront(Canvas& canvas, const State& state, PictureOf picture, Blend blend);

} // namespace zel
