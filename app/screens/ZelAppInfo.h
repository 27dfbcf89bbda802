#pragma once

#include "engine/core/String.h"

/// The application's name and its first screen.
class ZelAppInfo {
public:
    /// The window's caption and the name of the user's folder.
    static zel::String getAppName() { return "Wingtally"; }
    static zel::String getIdentifier() { return "wingtally"; }
    /// The first line of the list of screens; "blackScreen" if there is none.
    static zel::String getFirstStateName();
};
