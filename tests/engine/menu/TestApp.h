#pragma once

#include <functional>

#include "engine/menu/HandledMenuExtension.h"

/// What the application of these tests does when its menus are due, besides loading the list: a
/// test hangs its extensions in here. Emptied by ScreenDriver's end.
std::function<void()>& whenMenusAreLoaded();

/// The code of the sample program's screen "Looks".
class LooksScreen : public zel::HandledMenuExtension {
public:
    LooksScreen() : HandledMenuExtension("Looks") {}
    void onEnter() override { setActive("idle", false); }
};
