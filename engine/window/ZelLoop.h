#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "engine/window/Timer.h"
#include "engine/window/UpdateObject.h"

class ZelApp;

namespace zel {

/// The life of the application: the constructor builds everything, run() repeats frames, the
/// destructor ends everything in the reverse order. A program constructs one, runs it, destroys it,
/// and repeats that as long as run() returns true:
///
///     while (zel::ZelLoop().run()) {
///     }
class ZelLoop : public UpdateObject {
public:
    ZelLoop();
    ~ZelLoop() override;
    ZelLoop(const ZelLoop&) = delete;
    ZelLoop& operator=(const ZelLoop&) = delete;

    /// Repeats frames until a quit or a restart. True: build a new loop and run again.
    bool run();
    /// One frame; run() repeats it.
    void step();
    void update() override; // the update half of a frame
    /// Whether run() ends before the next frame. It may call the close answer.
    static bool isFinished();

    /// Decides when the player closes the window. True: the program ends. False: it goes on, and
    /// the decision is asked for again before the next frame, until Platform::forgetQuit()
    /// withdraws the request. Signals are not asked about. Null, as initially: the program ends.
    static void setCloseAnswer(std::function<bool()> answer) { closeAnswer = std::move(answer); }

    // Defined here, so that the parts below the application can ask without linking it.
    /// The loop ends before the next frame.
    static void quit() { quitRequested = true; }
    /// The same, and run() returns true.
    static void restart() { restartRequested = true; }
    static bool isQuitRequested() { return quitRequested; }

    /// Hands an object over to the loop, which destroys it after all later ones. REQUIRES: a loop.
    static void registerPersistent(std::unique_ptr<UpdateObject> object);

    /// For systems that suspend an application; nothing on a desktop calls them.
    static void onPause();
    static void onContinue(); // without effect unless paused

private:
    static std::vector<std::unique_ptr<UpdateObject>>& persistentObjects();

    std::unique_ptr<ZelApp> app;
    bool isFirstScreenShown = false;

    static bool paused;
    inline static bool quitRequested = false;
    inline static bool restartRequested = false;
    static int32_t startupBlankFrames;
    static Timer applicationTimer;
    static std::function<bool()> closeAnswer;
};

} // namespace zel
