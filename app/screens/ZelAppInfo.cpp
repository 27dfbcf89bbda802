#include "app/screens/ZelAppInfo.h"

#include "engine/menu/HandledMenu.h"

zel::String ZelAppInfo::getFirstStateName() { return zel::HandledMenu::getFirstMenuName(); }
