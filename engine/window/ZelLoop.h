#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "engine/window/Timer.h"
#include "engine/window/UpdateObject.h"

class ZelApp;

namespace zel {

/// The life of the application: its construction builds everything, run() repeats frames, its
/// destruction takes everything down in the reverse order. A program constructs one, runs it,
/// destroys it, and does so again as long as run() returns true:
///
///     while (zel::ZelLoop().run()) {
///     }
class ZelLoop : public UpdateObject {
public:
    ZelLoop();
    ~ZelLoop() override;
    ZelLoop(const ZelLoop&) = delete;
    ZelLoop& operator=(const ZelLoop&) = delete;

    /// Frames until a quit or a restart. True: build a new loop and go again.
    bool run();
    /// One frame; what run() repeats.
    void step();
    void update() override; // the update half of a frame
    /// Whether run() ends before the next frame. It may ask the close answer.
    static bool isFinished();

    /// Answers the player who closes the window. True: the program ends. False: it goes on, and the
    /// answer is asked for again before the next frame, until Platform::forgetQuit() takes the wish
    /// back. Nobody is asked about a signal. Null, as at first: the program ends.
    static void setCloseAnswer(std::function<bool()> answer) { closeAnswer = std::move(answer); }

    static void quit();
    static void restart();
    static bool isQuitRequested() { return quitRequested; }

    /// Hands an object over to the loop, which ends it behind all later ones. REQUIRES: a loop.
    static void registerPersistent(std::unique_ptr<UpdateObject> object);

    /// For systems that suspend an application; nothing on a desktop calls them.
    static void onPause();
    static void onContinue();

private:
    static std::vector<std::unique_ptr<UpdateObject>>& persistentObjects();

    std::unique_ptr<ZelApp> app;
    bool firstScreenStands = false;

    static bool paused;
    static bool quitRequested;
    static bool restartRequested;
    static int32_t startupBlankFrames;
    static Timer applicationTimer;
    static std::function<bool()> closeAnswer;
};

} // namespace zel
