#pragma once

#include "engine/menu/HandledMenuExtension.h"

class Database;
class Shelf;

/// What the screens of a running career share. Without a career they show and do nothing.
class CareerScreen : public zel::HandledMenuExtension {
public:
    using zel::HandledMenuExtension::HandledMenuExtension;

    /// Whether the player is in his career: from the squadron office on, or from a first save that
    /// failed, until he is back in the main menu. The career in memory is a draft before that, and
    /// saved after it.
    static bool isOpen();
    static void setOpen(bool open);
    /// The shelf through which careers are saved; if null, nothing is saved.
    static void setShelf(Shelf* saves);

protected:
    /// Call this in onEnter(): whether the player was here before the question that closing the
    /// window asks. The screen is then as he left it, with the same way back.
    static bool isReopened();
    /// Saves the career; does nothing if it can only be read and hasn't changed. On error the
    /// widget that was just hit leads, this once, to the page that reports it: a player who
    /// continued would lose everything since the last save. That page leads back to `back`, or
    /// where it normally does if that is empty.
    static void saveBefore(zel::Widget& leaving, const zel::String& back = {});
    /// Saves the career. On error: false, and the file and the reason for the page that reports it.
    static bool save(zel::String& problem);
    /// Null while there is no career.
    static Database* runningCareer();
    /// The career's day, in the element "date".
    void showDate();
    /// The base and the name of the player's squadron, in "airport" and "squadron". A
    /// squadron without a name leaves the menu's own text.
    void showSquadron();
    /// Shows the image in the widget, which isn't a button; hides it without one.
    void showImage(const zel::String& name, const zel::String& imageName);
    /// lines[i] in the element PREFIX and i + 1. Elements beyond the lines stay as they are.
    void showLines(const char* prefix, const std::vector<zel::String>& lines);
    /// Shows `count` of the `most` numbered rows of a form, and hides the others. The rows are the
    /// elements "row" and a number from `first` on.
    void showRows(int32_t first, size_t count, int32_t most);
};
