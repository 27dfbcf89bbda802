#include "app/screens/ScreenSounds.h"

#include "engine/sound/SoundHandler.h"

void playScreenSound(const char* name) {
    zel::SoundHandler::getInstance().play(zel::String("Sounds/") + name + ".wav");
}
