#pragma once

#include <memory>

#include "standin/BackgroundFlights.h"
#include "tools/common/Finding.h"

/// The stand-in simulator inside the program: it flies the missions of a player who has no
/// simulator. Its simulator folder is in the player's folder. The settings name that folder, which
/// keeps the choice; choosing another folder undoes it.
class OwnStandIn {
public:
    /// The path of its folder from the root, without a trailing separator.
    static zel::String folder();
    /// Whether the settings name its folder as the simulator's.
    static bool isChosen();
    /// Makes the folder as a simulator's is, with the text log on whatever its startup.cfg was. On
    /// error: false with the finding.
    [[nodiscard]] static bool make(tools::Finding& finding);
    /// Sets how it flies from now on, for tests.
    static void setOptions(const standin::FlightOptions& options);

    /// Starts it if it is chosen, making its folder if need be, and ends it otherwise.
    void follow();
    /// Why the mission of the orders isn't flown, in English without a full stop; empty if nothing
    /// is known to be wrong.
    zel::String trouble() const;

private:
    tools::Finding failure;                              // to make its folder, at the last follow()
    std::unique_ptr<standin::BackgroundFlights> flights; // while it is chosen
};
