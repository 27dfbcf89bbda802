#pragma once

#include "app/book/WarPart.h"
#include "app/screens/MadePicture.h"

/// The strip of the war: a month to each mark, the part that the player has served hatched, a light
/// stroke for each flight, and a red flag at today.
class WarStrip {
public:
    /// name: of the pictures of the strip, blank and served ("strip_diary"). The widget must not
    /// outlive this.
    void show(const zel::Menu& menu, const char* widget, const zel::String& name,
              const WarPart& war);

private:
    MadePicture picture;
};
