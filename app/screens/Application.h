#pragma once

/// The program as the loop starts it: the operations of ZelApp (engine/window/ZelApp.h), which open
/// the window and make the career's database, the flight and all screens.
///
/// Whether it opens a window, as it does for players. Without one the same screens run by the names
/// of their widgets. Call it before the loop is built; it holds for later loops too.
void setWindowWanted(bool wanted);
