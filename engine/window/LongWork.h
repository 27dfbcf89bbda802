#pragma once

#include <functional>

#include "engine/window/Timer.h"

namespace zel {

/// Work of several seconds within a frame of the loop, such as weeks of the war: keeps the window
/// responsive and shows the progress. It exists as long as the work:
///
///     zel::LongWork work;
///     for (const Step& step : steps) {
///         step.run();
///         if (work.isDue())
///             work.showFrame();
///     }
///
/// Input during the work is dropped, except for closing the window, which ends the loop after its
/// frame. The time counts neither for a running fade nor for the tasks of that frame. Without a
/// window the work goes on unseen.
///
/// REQUIRES: nothing is being drawn; so use it in update() and the notifications of a state, not in
/// render().
class LongWork {
public:
    LongWork();
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    /// Whether the last frame shown is a tenth of a second old. Cheap enough to ask at every step.
    bool isDue() const;
    /// Shows a frame: the visible states in their present form, and what `drawAbove` adds to them.
    void showFrame(const std::function<void()>& drawAbove = {});

private:
    Timer sinceFrame;
    bool holdsTransition;
};

} // namespace zel
