#pragma once

#include <cstdint>

#include "engine/window/UpdateObject.h"

namespace zel {

struct Pointer;

/// A full-window picture behind or in front of a state, as the state machine sees it: it may be
/// shared by several states, counts those that use it, and is notified as they are. Menus use
/// zel::MenuOverlay.
class StateOverlay : public UpdateAndRenderObject {
public:
    virtual void activate() {}   // the first user has come
    virtual void deactivate() {} // the last user has gone
    virtual void reset() {}
    virtual void onFirstEnter() {} // once
    virtual void onEnter() {}
    virtual void onEntered() {}
    virtual void onLeaving() {}
    virtual void onLeave() {}
    virtual void handlePointer(const Pointer&) {} // one frame of it, after update()

    int32_t getUserCount() const { return userCount; }
    void addUser() {
        if (++userCount == 1)
            activate();
    }
    /// Never counts below 0.
    void removeUser() {
        if (userCount > 0 && --userCount == 0)
            deactivate();
    }
    /// True at the first call only.
    bool takeFirstEnter() {
        const bool first = !firstEnterDone;
        firstEnterDone = true;
        return first;
    }

private:
    int32_t userCount = 0;
    bool firstEnterDone = false;
};

} // namespace zel
