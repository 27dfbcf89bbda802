#include "engine/graphics/DecoderGuard.h"

#include "engine/graphics/ByteReader.h"

namespace zel {

namespace {

constexpr char JpegStart = '\xFF'; // any number of them may precede the first marker
constexpr std::string_view HuffmanMarker = "\xFF\xC4";
constexpr int32_t MaxSymbols = 256; // of a Huffman table; the decoder has room for one more

constexpr std::string_view PngStart = "\x89PNG\r\n\x1A\n";

int32_t bigEndian16(ByteReader& reader) {
    const int32_t high = reader.u8();
    return high << 8 | reader.u8();
}

uint32_t bigEndian32(ByteReader& reader) {
    const auto high = static_cast<uint32_t>(bigEndian16(reader));
    return high << 16 | static_cast<uint32_t>(bigEndian16(reader));
}

/// Whether every chunk ends within the file: the decoder allocates before it reads.
bool areWholeChunks(ByteReader chunks) {
    while (chunks.left() > 0 && !chunks.hasFailed()) {
        const uint32_t length = bigEndian32(chunks);
        const bool isLast = chunks.bytes(4) == "IEND"; // what follows it is ignored
        chunks.bytes(length);
        if (chunks.hasFailed())
            return false;
        if (isLast)
            return true;
        chunks.bytes(4); // checksum, which the decoder ignores
    }
    return true;
}

/// Goes through the tables of a segment as the decoder does.
bool areSoundTables(ByteReader segment) {
    int32_t left = bigEndian16(segment) - 2;
    while (left > 0 && !segment.hasFailed()) {
        const int32_t kind = segment.u8();
        if (kind >> 4 > 1 || (kind & 15) > 3)
            return true; // it refuses these itself
        int32_t symbols = 0;
        for (int length = 1; length <= 16; ++length)
            symbols += segment.u8();
        if (symbols > MaxSymbols)
            return false;
        segment.bytes(symbols);
        left -= 17 + symbols;
    }
    return true;
}

/// Searches for the marker everywhere: after damage the decoder may resume anywhere.
bool areSoundTablesEverywhere(std::string_view content) {
    size_t place = content.find(HuffmanMarker);
    while (place != content.npos) {
        if (!areSoundTables(ByteReader(content.substr(place + HuffmanMarker.size()))))
            return false;
        place = content.find(HuffmanMarker, place + 1);
    }
    return true;
}

} // namespace

bool isSafeToDecode(std::string_view content) {
    if (content.substr(0, PngStart.size()) == PngStart)
        return areWholeChunks(ByteReader(content.substr(PngStart.size())));
    const bool isJpeg = !content.empty() && content.front() == JpegStart;
    return !isJpeg || areSoundTablesEverywhere(content);
}

} // namespace zel
