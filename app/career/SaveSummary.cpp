#include "app/career/SaveSummary.h"

#include <cstring>
#include <string>

#include "app/career/CareerTexts.h"
#include "app/career/SaveFormat.h"
#include "app/career/UnitNames.h"
#include "app/career/Wording.h"
#include "engine/core/File.h"
#include "engine/core/System.h"

namespace {

constexpr const char* OtherVersion = "is of another version";

struct Head {
    char magic[4];
    int32_t version, playerPilot, year, month, day, unusedA, unusedB, careerNumber;
};
static_assert(sizeof(Head) == 36);

/// The bytes of a save, from memory or from a file of which only some are read.
class SaveBytes {
public:
    explicit SaveBytes(std::string_view content)
        : content(content), length(static_cast<int64_t>(content.size())) {}
    explicit SaveBytes(zel::File& file) : file(&file), length(file.fileSize()) {}

    int64_t size() const { return length; }
    /// False beyond the end.
    template <typename Value> bool read(int64_t offset, Value& value) const {
        if (offset < 0 || offset + int64_t{sizeof value} > length)
            return false;
        if (file != nullptr)
            return file->seek(static_cast<int32_t>(offset), 0) && file->read(&value, sizeof value);
        std::memcpy(&value, content.data() + offset, sizeof value);
        return true;
    }

private:
    std::string_view content;
    zel::File* file = nullptr;
    int64_t length; // bytes
};

/// The beginning of a save, and where its records are.
struct SaveLayout {
    Head head{};
    int64_t squadrons = 0; // where the first one is
    int64_t pilots = 0;
    uint32_t squadronCount = 0;
    uint32_t pilotCount = 0;
    bool isUsable = false; // both are in the file
};

/// Follows the counts through the file. Returns what is wrong, or an empty text.
const char* readLayout(const SaveBytes& bytes, SaveLayout& layout) {
    constexpr const char* EndsEarly = "ends early";
    if (!bytes.read(0, layout.head) || std::memcmp(layout.head.magic, "WTSV", 4) != 0)
        return "is no save game";
    if (layout.head.version != SaveVersion)
        return OtherVersion;
    if (!isDayOfSave({layout.head.year, layout.head.month, layout.head.day}))
        return "has no date of the war";
    int64_t offset = sizeof(Head);
    const auto pass = [&](size_t recordSize, int64_t& first, uint32_t& count) {
        if (!bytes.read(offset, count))
            return false;
        first = offset + int64_t{sizeof count};
        offset = first + int64_t{count} * static_cast<int64_t>(recordSize);
        return offset <= bytes.size();
    };
    if (!pass(sizeof(Squadron), layout.squadrons, layout.squadronCount) ||
        !pass(sizeof(Pilot), layout.pilots, layout.pilotCount))
        return EndsEarly;
    layout.isUsable = true;
    for (const size_t recordSize : {sizeof(DataLine), sizeof(SquadronFile), sizeof(PilotFile)}) {
        int64_t first = 0;
        uint32_t count = 0;
        if (!pass(recordSize, first, count))
            return EndsEarly;
    }
    offset += 4 * int64_t{sizeof(int32_t)}; // the invitation
    return offset == bytes.size()  ? ""
           : offset > bytes.size() ? EndsEarly
                                   : "goes on after its end";
}

template <typename Record>
bool readRecord(const SaveBytes& bytes, int64_t first, uint32_t count, int32_t index,
                Record& record) {
    return index >= 0 && static_cast<uint32_t>(index) < count &&
           bytes.read(first + index * int64_t{sizeof(Record)}, record);
}

/// The player and his squadron, or the pilot with whom the book was closed. False if the file has
/// none.
bool readPlayer(const SaveBytes& bytes, const SaveLayout& layout, const Closing& closing,
                SaveSummary& summary) {
    Pilot pilot;
    Squadron squadron;
    const bool isClosed =
        closing.successor == layout.head.playerPilot && closing.date == summary.date.dateNumber();
    const int32_t index = isClosed ? closing.fallen : layout.head.playerPilot;
    if (!readRecord(bytes, layout.pilots, layout.pilotCount, index, pilot) ||
        !readRecord(bytes, layout.squadrons, layout.squadronCount, pilot.squadron, squadron))
        return false;
    summary.pilot = zel::String(zel::arrayText(pilot.name));
    summary.pilotIndex = index;
    summary.isPlayer = !isClosed;
    summary.victories = pilot.shotdowns;
    summary.missions = pilot.missions;
    summary.nation = squadron.nation;
    if (squadron.squadronFile >= 0)
        summary.unit = zel::toInt(zel::arrayText(squadron.key));
    if (hasUnitName(summary.unit))
        summary.squadron = unitName(summary.unit);
    summary.base = nameInLanguage(zel::String(zel::arrayText(squadron.baseName)));
    if (pilot.alive == 0)
        summary.state = CareerState::Fallen;
    else if (summary.date.dateNumber() >= FirstDayOfPeace)
        summary.state = CareerState::WarOver;
    return true;
}

} // namespace

SaveSummary summaryOf(const zel::String& path, const Closing& closing) {
    SaveSummary summary;
    summary.file = path;
    const zel::system::FileStatus status = zel::system::fileStatus(path);
    if (!status.exists) {
        summary.fault = "is not there";
        return summary;
    }
    summary.written = zel::system::wallTimeOf(status);
    summary.order = status.changed;
    zel::File file(path, zel::FileRead);
    if (!file.isOpen()) {
        summary.fault = "can't be read";
        return summary;
    }
    const SaveBytes bytes(file);
    SaveLayout layout;
    summary.fault = readLayout(bytes, layout);
    summary.isOtherVersion = summary.fault == OtherVersion;
    if (!layout.isUsable)
        return summary;
    summary.careerNumber = layout.head.careerNumber;
    summary.date = {layout.head.year, layout.head.month, layout.head.day};
    summary.isReadable = readPlayer(bytes, layout, closing, summary);
    if (!summary.isReadable && summary.fault.empty())
        summary.fault = "has no player";
    return summary;
}

zel::String saveFault(std::string_view content) {
    SaveLayout layout;
    return readLayout(SaveBytes(content), layout);
}
