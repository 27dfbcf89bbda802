#include "app/career/Database.h"

#include "app/career/CareerEvents.h"
#include "app/career/DataTables.h"
#include "app/career/NameLists.h"
#include "app/career/NewCareer.h"
#include "app/career/PilotHistory.h"
#include "app/career/SaveFile.h"
#include "app/career/SquadronActivation.h"
#include "app/career/SquadronRoster.h"

namespace {

Database* currentDatabase = nullptr;

} // namespace

Database::Database() {
    currentDatabase = this;
    loadNameLists(*this);
    careerNumber = random.getInt(0, LastCareerNumber);
}

Database::~Database() {
    if (currentDatabase == this)
        currentDatabase = nullptr;
}

Database* Database::instance() { return currentDatabase; }

uint32_t Database::careerSeed() const {
    // Two rounds of a multiplicative hash, so that neighbouring days share nothing.
    uint32_t mix = static_cast<uint32_t>(careerNumber) ^
                   (static_cast<uint32_t>(calendar().dateNumber()) * 0x9E3779B9U);
    mix = (mix ^ (mix >> 16)) * 0x85EBCA6BU;
    mix = (mix ^ (mix >> 13)) * 0xC2B2AE35U;
    mix ^= mix >> 16;
    return mix != 0 ? mix : 1;
}

void Database::createCareer(int32_t service) { ::createCareer(*this, service); }

int32_t Database::addSquadron(int32_t nation) { return ::addSquadron(*this, nation); }

void Database::readDataFiles() { ::readDataFiles(*this); }

bool Database::hasAircraft(const zel::String& key, const zel::String& plane) const {
    return ::hasAircraft(*this, key, plane);
}

zel::String Database::squadronSkin(const zel::String& key, const zel::String& plane) const {
    return ::squadronSkin(*this, key, plane);
}

zel::String Database::pilotSkin(int32_t pilotFile, const zel::String& plane) const {
    return ::pilotSkin(*this, pilotFile, plane);
}

bool Database::storeFile(const zel::String& name) {
    static_cast<void>(::writeSave(*this, name));
    return true;
}

bool Database::writeSave(const zel::String& name) { return ::writeSave(*this, name); }

bool Database::isSaved(const zel::String& name) const { return ::isSaved(*this, name); }

bool Database::loadFile(const zel::String& name) { return ::readSave(*this, name); }

bool Database::loadBackup(const zel::String& name) { return ::readBackup(*this, name); }

void Database::activateSquadrons(int32_t atYear, int32_t atMonth, int32_t atDay) {
    ::activateSquadrons(*this, {atYear, atMonth, atDay});
}

void Database::applyHistory() { ::applyHistory(*this); }

bool Database::applyPilotEvent(const zel::String& name, const std::vector<DataToken>& tokens,
                               int32_t fileIndex) {
    return ::applyPilotEvent(*this, name, tokens, fileIndex);
}

bool Database::swapPilots(int32_t first, int32_t second) {
    return ::swapPilots(*this, first, second, PostingCause::History);
}

std::vector<int32_t> Database::squadronRoster(int32_t squadron) const {
    return ::squadronRoster(*this, squadron);
}
