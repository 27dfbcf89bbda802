#include "tests/engine/menu/TestApp.h"

#include "engine/menu/HandledMenu.h"
#include "engine/window/State.h"
#include "engine/window/Window.h"
#include "engine/window/ZelApp.h"

// The smallest application: no window of its own, the menus of the working directory.

ZelApp::ZelApp() = default;
ZelApp::~ZelApp() { zel::Window::destroy(); }

void ZelApp::init() {
    zel::State::setFadeSpeed(5.0F);
    zel::State::setCrossFadeSpeed(3.0F);
}

void ZelApp::onLanguageSet() {}
void ZelApp::beforeServices() {}
void ZelApp::afterServices() {}
void ZelApp::beforeMenus() {}

void ZelApp::initMenus() {
    zel::HandledMenu::loadMenuList("Menus/init.lst");
    if (whenMenusAreLoaded())
        whenMenusAreLoaded()();
}

void ZelApp::onStarted() {}
zel::String ZelApp::getFirstStateName() { return zel::HandledMenu::getFirstMenuName(); }
void ZelApp::onPause() {}
void ZelApp::onContinue() {}
void ZelApp::onShutdown() {}
void ZelApp::onDestroy() {}
void ZelApp::releaseDatabase() {}
void ZelApp::releaseMenus() { zel::HandledMenu::releaseMenus(); }
