#pragma once

#include <cstdint>

#include "engine/window/UpdateObject.h"

namespace zel {

/// What the state machine knows of a full-window picture that lies behind or in front of a state
/// and may be shared by several: how many states use it now, and the moments it is told of.
/// zel::MenuOverlay is the class of them that menus use.
class StateOverlay : public UpdateAndRenderObject {
public:
    virtual void activate() {}   // the first user has come
    virtual void deactivate() {} // the last user has gone
    virtual void reset() {}
    virtual void onFirstEnter() {} // once in its life
    virtual void onEnter() {}
    virtual void onEntered() {}
    virtual void onLeaving() {}
    virtual void onLeave() {}

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
    /// True the first time that it is asked.
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
