#pragma once

#include <functional>

#include "engine/window/Timer.h"

namespace zel {

/// Work of seconds in the midst of a frame, such as weeks of the war: keeps the window alive, which
/// the system would take for dead, and shows how far the work has come. It exists as long as the
/// work:
///
///     zel::LongWork work;
///     for (const Step& step : steps) {
///         step.run();
///         if (work.isDue())
///             work.showPicture();
///     }
///
/// What the player presses meanwhile is dropped, but for the wish to close the window: the loop
/// ends behind the frame. The time counts neither for a running fade nor against the tasks of the
/// frame. Without a window all goes on, and nothing is seen.
///
/// REQUIRES: no drawing is under way; so it belongs into update() and the notifications of a state,
/// not into render().
class LongWork {
public:
    LongWork();
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    /// Whether the last picture is a tenth of a second old. Cheap enough for every step.
    bool isDue() const;
    /// Shows the visible states as they are now, and what `drawAbove` adds to them.
    void showPicture(const std::function<void()>& drawAbove = {});

private:
    Timer sincePicture;
    bool holdsTransition;
};

} // namespace zel
