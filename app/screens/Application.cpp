#include "app/screens/Application.h"

namespace {

bool windowWanted = true;

} // namespace

void setWindowWanted(bool wanted) { windowWanted = wanted; }

bool isWindowWanted() { return windowWanted; }
