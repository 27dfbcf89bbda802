#pragma once

#include "engine/core/String.h"

/// What the application is called and how it begins.
class ZelAppInfo {
public:
    /// In the caption, and of the user's folder.
    static zel::String getAppName() { return "Wingtally"; }
    static zel::String getIdentifier() { return "wingtally"; }
    /// The first line of the list of screens; "blackScreen" if there is none.
    static zel::String getFirstStateName();
};
