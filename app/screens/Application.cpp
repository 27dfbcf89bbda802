#include "app/screens/Application.h"

#include <memory>

#include "app/career/Aircraft.h"
#include "app/career/CareerLock.h"
#include "app/career/Database.h"
#include "app/mission/Settings.h"
#include "app/record/CareerRecord.h"
#include "app/record/Shelf.h"
#include "app/report/Flight.h"
#include "app/screens/CareerDrawer.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/CitationPile.h"
#include "app/screens/MenuBlackScreen.h"
#include "app/screens/MenuCareerPages.h"
#include "app/screens/MenuCareers.h"
#include "app/screens/MenuConfiguration.h"
#include "app/screens/MenuConfigurationMaps.h"
#include "app/screens/MenuConfigurationPlanes1.h"
#include "app/screens/MenuConfigurationPlanes2.h"
#include "app/screens/MenuEnlist.h"
#include "app/screens/MenuGameAdvance.h"
#include "app/screens/MenuGameCitation.h"
#include "app/screens/MenuGameCombatReport.h"
#include "app/screens/MenuGameDiary.h"
#include "app/screens/MenuGameFallen.h"
#include "app/screens/MenuGameFinishMission.h"
#include "app/screens/MenuGameInvite.h"
#include "app/screens/MenuGameLogbook.h"
#include "app/screens/MenuGameMain.h"
#include "app/screens/MenuGamePilot.h"
#include "app/screens/MenuGameRecord.h"
#include "app/screens/MenuGameStartMission.h"
#include "app/screens/MenuGameTopAces.h"
#include "app/screens/MenuGameViewSquadron.h"
#include "app/screens/MenuGameWarOver.h"
#include "app/screens/MenuGameWhere.h"
#include "app/screens/MenuMain.h"
#include "app/screens/MenuNewCareer.h"
#include "app/screens/MenuNotification.h"
#include "app/screens/MenuNotificationRepair.h"
#include "app/screens/MenuNotificationSave.h"
#include "app/screens/MenuNotificationUnsaved.h"
#include "app/screens/MenuSimulator.h"
#include "app/screens/MenuSimulatorFolder.h"
#include "app/screens/OwnStandIn.h"
#include "app/screens/PilotPages.h"
#include "app/screens/Preferences.h"
#include "app/screens/ReportPages.h"
#include "app/screens/SimulatorPlaces.h"
#include "app/screens/ZelAppInfo.h"
#include "engine/core/Log.h"
#include "engine/core/UserDirectory.h"
#include "engine/graphics/Bitmap.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/HandledMenu.h"
#include "engine/menu/script/MenuWords.h"
#include "engine/window/State.h"
#include "engine/window/Window.h"
#include "engine/window/ZelApp.h"
#include "engine/window/ZelLoop.h"

namespace {

constexpr int32_t ColorDepth = 32;
constexpr int32_t AllLevels = 7;
constexpr int32_t ImageFlags = 0xAF;
constexpr float CrossFadeSpeed = 3.0F;
constexpr float FadeSpeed = 5.0F;
constexpr const char* IconFile = "Pictures/icon.png";

bool windowWanted = true;

std::unique_ptr<Database>& database() {
    static std::unique_ptr<Database> instance;
    return instance;
}

std::unique_ptr<CareerLock>& lock() {
    static std::unique_ptr<CareerLock> instance;
    return instance;
}

std::unique_ptr<CareerRecord>& record() {
    static std::unique_ptr<CareerRecord> instance;
    return instance;
}

std::unique_ptr<Shelf>& shelf() {
    static std::unique_ptr<Shelf> instance;
    return instance;
}

std::unique_ptr<CareerDrawer>& drawer() {
    static std::unique_ptr<CareerDrawer> instance;
    return instance;
}

std::unique_ptr<CitationPile>& citations() {
    static std::unique_ptr<CitationPile> instance;
    return instance;
}

std::unique_ptr<PilotPages>& pilotPages() {
    static std::unique_ptr<PilotPages> instance;
    return instance;
}

std::unique_ptr<Flight>& flight() {
    static std::unique_ptr<Flight> instance;
    return instance;
}

std::unique_ptr<OwnStandIn>& ownStandIn() {
    static std::unique_ptr<OwnStandIn> instance;
    return instance;
}

std::unique_ptr<SimulatorPlaces>& simulatorPlaces() {
    static std::unique_ptr<SimulatorPlaces> instance;
    return instance;
}

EnlistmentForm& enlistmentForm() {
    static EnlistmentForm form;
    return form;
}

std::unique_ptr<ReportPages>& reportPages() {
    static std::unique_ptr<ReportPages> instance;
    return instance;
}

void openWindow() {
    if (!windowWanted)
        return;
    zel::Bitmap icon;
    if (icon.load(IconFile, false))
        zel::Window::setIcon(icon);
    if (!zel::Window::create(zel::DesignWidth, zel::DesignHeight, ColorDepth)) {
        zel::ZelLoop::quit(); // nobody could see or end the program
        return;
    }
    zel::Window::current()->setSimulatedResolution(zel::DesignWidth, zel::DesignHeight, true);
    zel::Window::current()->setTitle(ZelAppInfo::getAppName());
    preferences::applyFullScreen();
    zel::Window::setFullscreenListener(preferences::noteFullScreen);
}

template <typename Screen, typename... Arguments> void addScreen(Arguments&... arguments) {
    zel::ZelLoop::registerPersistent(std::make_unique<Screen>(arguments...));
}

} // namespace

void setWindowWanted(bool wanted) { windowWanted = wanted; }

ZelApp::ZelApp() = default;
ZelApp::~ZelApp() { zel::Window::destroy(); }

void ZelApp::init() {
    zel::setLogLevel(AllLevels);
    zel::setApplicationTitle(ZelAppInfo::getAppName());
    loadSettings();
    zel::setCategoryLogLevel("Performance", zel::LogWarning);
    openWindow();
    zel::ImageHandler::getInstance().setFlags(ImageFlags);
    zel::State::setCrossFadeSpeed(CrossFadeSpeed);
    zel::State::setFadeSpeed(FadeSpeed);
    initPlaneNames();
    database() = std::make_unique<Database>();
    record() = std::make_unique<CareerRecord>();
    database()->observer = record().get();
    lock() = std::make_unique<CareerLock>();
    database()->lock = lock().get();
    shelf() = std::make_unique<Shelf>(*database(), *record());
    shelf()->tidy();
    CareerScreen::setShelf(shelf().get());
    drawer() = std::make_unique<CareerDrawer>(*database(), *shelf());
    preferences::applySound();
    ownStandIn() = std::make_unique<OwnStandIn>();
    ownStandIn()->follow();
    simulatorPlaces() = std::make_unique<SimulatorPlaces>();
}

void ZelApp::onLanguageSet() {}
void ZelApp::beforeServices() {}
void ZelApp::afterServices() {}
void ZelApp::beforeMenus() {}

void ZelApp::initMenus() {
    zel::HandledMenu::loadMenuList("Menus/init.lst");
    flight() = std::make_unique<Flight>(record().get());
    reportPages() = std::make_unique<ReportPages>(*flight(), *record());
    pilotPages() = std::make_unique<PilotPages>(*record());
    addScreen<MenuGameStartMission>(*flight(), *record());
    addScreen<MenuGameFinishMission>(*flight(), *ownStandIn());
    addScreen<MenuMain>(*drawer());
    addScreen<MenuSimulator>(*simulatorPlaces(), *ownStandIn());
    addScreen<MenuSimulatorFolder>(*simulatorPlaces());
    addScreen<MenuCareers>(*drawer());
    addScreen<MenuCareerPages>(*drawer());
    addScreen<MenuGameMain>(*record(), *flight());
    addScreen<MenuGameViewSquadron>(*pilotPages());
    addScreen<MenuGameTopAces>(*pilotPages());
    addScreen<MenuGamePilot>(*record(), *pilotPages());
    addScreen<MenuGameCombatReport>(*reportPages());
    addScreen<MenuGameWhere>(*reportPages());
    addScreen<MenuGameLogbook>(*record(), *reportPages());
    addScreen<MenuConfigurationMaps>();
    addScreen<MenuConfigurationPlanes1>();
    addScreen<MenuConfigurationPlanes2>();
    addScreen<MenuEnlist>(enlistmentForm());
    addScreen<MenuNewCareer>(enlistmentForm(), *flight());
    addScreen<MenuGameInvite>();
    addScreen<MenuConfiguration>();
    citations() = std::make_unique<CitationPile>(*record());
    addScreen<MenuGameAdvance>(*citations(), *reportPages());
    addScreen<MenuGameFallen>(*record(), *citations(), *drawer());
    addScreen<MenuGameCitation>(*citations());
    addScreen<MenuGameDiary>(*record(), *pilotPages());
    addScreen<MenuGameRecord>(*record(), *citations(), *pilotPages());
    addScreen<MenuGameWarOver>(*record(), *reportPages());
    addScreen<MenuBlackScreen>(*drawer());
    addScreen<MenuNotificationRepair>(*drawer());
    addScreen<MenuNotificationUnsaved>(*flight(), *reportPages());
    addScreen<MenuNotificationSave>();
    addScreen<MenuNotification>("MenuNotificationMission");
}

void ZelApp::onStarted() {}
zel::String ZelApp::getFirstStateName() { return ZelAppInfo::getFirstStateName(); }
void ZelApp::onPause() {}
void ZelApp::onContinue() {}
void ZelApp::onShutdown() {}
void ZelApp::onDestroy() {}
void ZelApp::releaseDatabase() {
    simulatorPlaces().reset();
    ownStandIn().reset();
    reportPages().reset();
    flight().reset();
    citations().reset();
    enlistmentForm() = {};
    pilotPages().reset();
    drawer().reset();
    CareerScreen::setShelf(nullptr);
    shelf().reset();
    database().reset();
    record().reset();
    lock().reset();
}
void ZelApp::releaseMenus() { zel::HandledMenu::releaseMenus(); }
