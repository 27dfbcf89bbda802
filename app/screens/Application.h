#pragma once

/// Whether the application opens a window, as it does for players. Without one the same screens run
/// by the names of their widgets. Call it before the loop is built. It holds for later loops too.
void setWindowWanted(bool wanted);
bool isWindowWanted();
