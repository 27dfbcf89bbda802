#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/Random.h"
#include "engine/core/String.h"

class Database;

/// A pending invitation as it is put to the player: the letter, and what his answer does.
class InvitationLetter {
public:
    virtual ~InvitationLetter() = default;

    /// Looks for an invitation. False if none is pending; the letter is then empty.
    bool open();
    const zel::String& text() const { return letter; }

    /// The player changes places with the inviting squadron's last pilot. False, changing nothing,
    /// if that squadron has no pilot.
    bool accept();
    void refuse();

private:
    void write(const Database& career);

    std::vector<int32_t> roster; // of the inviting squadron, best first
    zel::String letter;
    zel::Random random; // for the months up to the next invitation
};
