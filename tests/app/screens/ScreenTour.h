#pragma once

#include <functional>
#include <string>

class CareerDriver;

/// Goes once through the program from the main menu on, so that every screen shows what it is for,
/// and calls for each with a name: the screen's, or SCREEN_VARIANT. The last one is the main menu.
/// False if a step failed; the test reports which.
bool tourScreens(CareerDriver& driver, const std::function<void(const std::string& name)>& visit);
