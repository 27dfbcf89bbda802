#pragma once

#include <functional>

/// What the application of these tests does when its menus are due, besides loading the list: a
/// test hangs its extensions in here. Emptied by ScreenDriver's end.
std::function<void()>& whenMenusAreLoaded();
