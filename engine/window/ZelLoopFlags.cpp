// What lower parts may ask of the loop without knowing the application that it builds.
#include "engine/window/ZelLoop.h"

namespace zel {

bool ZelLoop::quitRequested = false;
bool ZelLoop::restartRequested = false;

void ZelLoop::quit() { quitRequested = true; }
void ZelLoop::restart() { restartRequested = true; }

} // namespace zel
