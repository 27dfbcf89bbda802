#pragma once

#include <functional>

#include "engine/menu/HandledMenuExtension.h"

/// What the tests' application does when it loads its menus, in addition to loading the list. A
/// test adds its extensions here; ScreenDriver's destructor clears it.
std::function<void()>& whenMenusAreLoaded();

/// The code of the sample program's screen "Looks".
class LooksScreen : public zel::HandledMenuExtension {
public:
    LooksScreen() : HandledMenuExtension("Looks") {}
    void onEnter() override { setActive("idle", false); }
};
