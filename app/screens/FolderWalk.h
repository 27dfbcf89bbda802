#pragma once

#include <vector>

#include "engine/core/String.h"

/// Browses the machine's folders for the simulator's: holds the current folder and the folders in
/// it. It begins in the player's own folder.
class FolderWalk {
public:
    /// Goes to a folder, from the root, and lists it again.
    void open(const zel::String& folder);
    /// Goes to the list of drives, or of the folders in which disks appear.
    void openDrives();
    /// Goes to the player's own folder, or to the drives if the system names none.
    void goHome();
    /// Goes into the folder of that row. REQUIRES: row < names().size().
    void enter(size_t row);
    bool canGoUp() const;
    /// Goes to the folder above. Gives the row of the folder that it has left; -1 if there is none.
    /// At the top: nothing, and -1.
    int32_t goUp();

    /// The path; empty at the drives and before the first step.
    const zel::String& getFolder() const { return folder; }
    bool isAtDrives() const { return folder.empty(); }
    /// Whether the folder could be listed.
    bool isReadable() const { return readable; }
    /// The folders here, as the system names them, sorted without regard to case, hidden ones last.
    const std::vector<zel::String>& getNames() const { return names; }
    /// The first folder whose name begins with that letter, in either case; the next one if `from`
    /// does so as well. -1 for none.
    int32_t find(char letter, int32_t from) const;
    /// The simulator's folder if this is it, or is its folder "data"; otherwise empty.
    zel::String simulatorHere() const;
    /// Whether this is the simulator's folder "data".
    bool isInData() const;

private:
    void list();

    zel::String folder;
    std::vector<zel::String> names;
    bool readable = true;
};
