#pragma once

#include "engine/core/String.h"

/// The application as the loop sees it. The engine only declares it: each program, and each test
/// that runs a loop, defines these operations. There is one, from the start to the end of the loop.
class ZelApp {
public:
    ZelApp();
    virtual ~ZelApp(); // last, at the loop's end: closes the window

    void init(); // settings, window, data

    // Four steps between the language and the menus, in this order.
    void onLanguageSet();
    void beforeServices();
    void afterServices();
    void beforeMenus();
    /// Makes the menus and their states.
    void initMenus();
    /// The last step before the first frame.
    void onStarted();

    /// The state entered first.
    static zel::String getFirstStateName();

    // The application is suspended (called before the active state's onPause()) and goes on (after
    // its onContinue()).
    void onPause();
    void onContinue();

    void onShutdown(); // at the end of the run, and again when the loop ends
    void onDestroy();
    // In this order, after onDestroy(); the images and fonts still exist.
    void releaseDatabase();
    void releaseMenus();
};
