#pragma once

/// Whether the application opens a window, as it does for players. Without one the same screens run
/// by the names of their widgets. To be said before the loop is built; holds for later loops too.
void setWindowWanted(bool wanted);
