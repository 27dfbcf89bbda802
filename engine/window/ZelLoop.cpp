#include "engine/window/ZelLoop.h"

#include "engine/core/BackgroundWork.h"
#include "engine/core/Language.h"
#include "engine/core/Log.h"
#include "engine/core/Shutdown.h"
#include "engine/graphics/Canvas.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/graphics/PictureDetail.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/Platform.h"
#include "engine/window/State.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"
#include "engine/window/ZelApp.h"

namespace zel {

namespace {

constexpr int32_t BlankFrames = 5;

/// The state "quitApp": black, and the end of the program once it has faded in. Scripts can lead to
/// it like any other.
class QuitState : public State {
public:
    QuitState() : State("quitApp") {}

    void update() override {}
    void render() override { Canvas::getInstance().clear(uint32_t(getOpacityByte()) << 24); }
    void reset() override {}
    void onFirstEnter() override {}
    void onEnter() override {}
    void onEntered() override { ZelLoop::quit(); }
    void onLeaving() override {}
    void onLeave() override {}
    void onPause() override {}
    void onContinue() override {}
    void onEvent(Widget* /*widget*/, int32_t /*eventType*/) override {}
};

/// The bitmaps of the loading queue, one a frame.
class BitmapLoading : public BackgroundWork {
public:
    bool hasWork() const override { return ImageHandler::getInstance().getQueue().hasWork(); }
    void step() override { ImageHandler::getInstance().getQueue().step(); }
};

/// A rare task for synchronising values with a remote service. Scripts can control it; this program
/// has no such service, so it does nothing.
class SyncHandler : public UpdateObject {
public:
    void update() override {}

    /// Registers as a task, unless it is one.
    void join(HighLevelScheduler& scheduler) {
        if (scheduler.hasTask(this))
            return;
        scheduler.addTask(this, nullptr);
        scheduler.setTaskName(this, "SyncHandler");
        scheduler.setTaskPriority(this, 6);
        console("added SyncHandler to global scheduler");
    }
};

SyncHandler& syncHandler() {
    static SyncHandler handler;
    return handler;
}

ZelLoop* currentLoop = nullptr;

} // namespace

bool ZelLoop::paused = false;
int32_t ZelLoop::startupBlankFrames = BlankFrames;
Timer ZelLoop::applicationTimer;
std::function<bool()> ZelLoop::closeAnswer;

std::vector<std::unique_ptr<UpdateObject>>& ZelLoop::persistentObjects() {
    static std::vector<std::unique_ptr<UpdateObject>> objects;
    return objects;
}

ZelLoop::ZelLoop() {
    static BitmapLoading bitmapLoading;
    Platform::getInstance(); // before anything uses the time or the log
    currentLoop = this;
    startupBlankFrames = BlankFrames;
    paused = false;
    quitRequested = false;
    restartRequested = false;
    closeAnswer = nullptr;
    app = std::make_unique<ZelApp>();
    applicationTimer.stop();
    app->init();
    PictureDetail::follow(); // before the first picture is loaded
    Language::init();
    StatesMachine::getInstance().setBackgroundWork(&bitmapLoading);
    syncHandler().join(HighLevelScheduler::getInstance());
    app->onLanguageSet();
    app->beforeServices();
    app->afterServices();
    app->beforeMenus();
    registerPersistent(std::make_unique<QuitState>());
    app->initMenus();
    app->onStarted();
}

ZelLoop::~ZelLoop() {
    closeAnswer = nullptr; // it may belong to a screen
    app->onShutdown();
    app->onDestroy();
    auto& objects = persistentObjects();
    while (!objects.empty())
        objects.pop_back();
    app->releaseDatabase();
    app->releaseMenus();
    ImageHandler::getInstance().clear();
    FontHandler::clear();
    runShutdownSteps();
    Language::reset();
    HighLevelScheduler::destroy();
    StatesMachine::getInstance().reset();
    app.reset();
    currentLoop = nullptr;
}

bool ZelLoop::run() {
    while (!isFinished())
        step();
    app->onShutdown();
    const bool again = restartRequested;
    restartRequested = false;
    return again;
}

void ZelLoop::step() {
    // The player waits for the first screen: until then frames don't wait.
    const StatesMachine& machine = StatesMachine::getInstance();
    isFirstScreenShown = isFirstScreenShown || (machine.getActiveState() && machine.isSettled());
    if (Window* window = Window::current())
        window->setPaced(isFirstScreenShown);
    HighLevelScheduler::getInstance().render();
    PictureDetail::follow();
    update();
}

void ZelLoop::update() {
    if (startupBlankFrames > 0) {
        --startupBlankFrames;
        Canvas::getInstance().clearWindow();
        return;
    }
    StatesMachine& machine = StatesMachine::getInstance();
    if (machine.getActiveState() == nullptr)
        if (State* first = machine.getState(ZelApp::getFirstStateName()))
            machine.setActiveState(first);
    machine.update();
}

bool ZelLoop::isFinished() {
    if (restartRequested || quitRequested)
        return true;
    if (Window::current() == nullptr || !Window::pollQuit())
        return false;
    return closeAnswer == nullptr || Platform::getInstance().isInterrupted() || closeAnswer();
}

void ZelLoop::registerPersistent(std::unique_ptr<UpdateObject> object) {
    persistentObjects().push_back(std::move(object));
}

void ZelLoop::onPause() {
    if (currentLoop == nullptr || paused)
        return;
    log("onPause started", "ZelLoop", LogInfo);
    paused = true;
    currentLoop->app->onPause();
    if (State* state = StatesMachine::getInstance().getActiveState())
        state->onPause();
    runSuspendSteps();
    ImageHandler::getInstance().releaseShortLived();
    log("onPause finished", "ZelLoop", LogInfo);
}

void ZelLoop::onContinue() {
    log("onContinue called", "ZelLoop", LogInfo);
    if (currentLoop == nullptr || !paused)
        return;
    paused = false;
    if (State* state = StatesMachine::getInstance().getActiveState())
        state->onContinue();
    currentLoop->app->onContinue();
    runResumeSteps();
    syncHandler().join(HighLevelScheduler::getInstance());
    Canvas::getInstance().invalidate();
    log("onContinue finished", "ZelLoop", LogInfo);
}

} // namespace zel
