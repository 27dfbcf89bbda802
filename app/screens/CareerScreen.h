#pragma once

#include "engine/menu/HandledMenuExtension.h"

class Database;

/// What the screens of a running career share. Where none runs they show nothing and do nothing.
class CareerScreen : public zel::HandledMenuExtension {
public:
    using zel::HandledMenuExtension::HandledMenuExtension;

protected:
    /// Null while there is no career.
    static Database* runningCareer();
    /// The career's day, in the element "date".
    void showDate();
    /// Where the player's squadron stands and what it is called, in "airport" and "squadron". A
    /// squadron without a name leaves the menu's own text.
    void showSquadron();
    /// lines[i] in the element PREFIX and i + 1. Elements beyond the lines stay as they are.
    void showLines(const char* prefix, const std::vector<zel::String>& lines);
};
