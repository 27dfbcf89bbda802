#include "app/record/RecordSeal.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "app/career/Checksum.h"
#include "app/record/RecordFile.h"
#include "app/record/Sqlite.h"
#include "engine/core/File.h"

namespace {

constexpr int32_t HeadLength = 100; // bytes of a SQLite file
constexpr int32_t PieceLength = 1 << 18;

/// Places in the head that the checksum leaves out: SQLite's counter of changes, the seal itself,
/// and the counter's value and SQLite's version at the last change.
struct ByteRange {
    int32_t offset, length;
};
constexpr ByteRange Changing[] = {{24, 4}, {68, 4}, {92, 8}};
constexpr int32_t SealOffset = 68;

struct Seals {
    uint32_t noted = 0; // 0 for none
    uint32_t found = 0; // the seal that fits the present content; 0 if it can't be read
};

/// REQUIRES: the file is at its start.
Seals readSeals(zel::File& file) {
    Seals seals;
    ChecksumOfPieces checksum;
    std::vector<char> piece(PieceLength);
    for (int32_t left = file.fileSize(); left > 0;) {
        const int32_t length = std::min(left, PieceLength);
        if (!file.read(piece.data(), length))
            return {};
        if (left == file.fileSize()) {
            if (length < HeadLength)
                return {};
            for (int32_t i = 0; i < 4; ++i)
                seals.noted = seals.noted << 8U | static_cast<uint8_t>(piece[SealOffset + i]);
            for (const ByteRange& place : Changing)
                std::memset(&piece[place.offset], 0, static_cast<size_t>(place.length));
        }
        checksum.add({piece.data(), static_cast<size_t>(length)});
        left -= length;
    }
    seals.found = static_cast<uint32_t>(checksum.value()) | 1U;
    return seals;
}

} // namespace

RecordSeal sealOf(const zel::String& path) {
    if (hasCompanions(path))
        return RecordSeal::None;
    zel::File file(path, zel::FileRead);
    const Seals seals = readSeals(file);
    if (seals.noted == 0 || seals.found == 0)
        return RecordSeal::None;
    return seals.noted == seals.found ? RecordSeal::Whole : RecordSeal::Broken;
}

bool beginRecord(SqliteFile& file) { return file.begin() && file.run("PRAGMA application_id = 0"); }

void sealRecord(const zel::String& path) {
    zel::File closed(path, zel::FileRead);
    const Seals seals = readSeals(closed);
    closed.close();
    if (seals.noted != 0 || seals.found == 0)
        return;
    // Not synced: losing it in a power cut only costs a full check.
    const std::string sql = "PRAGMA synchronous = OFF; PRAGMA application_id = " +
                            std::to_string(static_cast<int32_t>(seals.found));
    SqliteFile file;
    file.open(path, SqliteFile::MustExist);
    file.run(sql.c_str());
}
