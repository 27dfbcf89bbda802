#pragma once

/// The program as the loop starts it: the operations of ZelApp (engine/window/ZelApp.h), which open
/// the window and make the career's database, the flight and all screens.
///
/// Sets whether it opens a window (the default). Without one, callers drive the same screens by the
/// names of their widgets. Call it before the loop is built; it applies to later loops too.
void setWindowWanted(bool wanted);
