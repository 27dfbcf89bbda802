#include "engine/core/File.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "engine/core/Log.h"
#include "engine/core/System.h"

namespace zel {

namespace {

constexpr const char* Modes[] = {"rb", "wb", "r+b", "a+b"};
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

bool endsLine(char character) { return character == '\r' || character == '\n'; }

} // namespace

File::File(const String& name, int32_t mode) {
    if (name.empty()) {
        log("Tried to open file without filename", "File", LogError);
        failed = true;
        return;
    }
    stream.reset(system::openFile(name, Modes[mode >= FileRead && mode <= FileAppend ? mode : 0]));
    if (stream == nullptr) {
        failed = true;
        return;
    }
    if (mode == FileWrite)
        return;
    long end = std::fseek(stream.get(), 0, SEEK_END) == 0 ? std::ftell(stream.get()) : -1;
    if (end < 0 || end > std::numeric_limits<int32_t>::max()) {
        close();
        failed = true;
        return;
    }
    size = static_cast<int32_t>(end);
    if (mode != FileAppend)
        std::rewind(stream.get());
    else
        position = size;
}

bool File::write(const void* block, int32_t count) {
    if (stream == nullptr || count < 0 ||
        std::fwrite(block, 1, static_cast<size_t>(count), stream.get()) !=
            static_cast<size_t>(count)) {
        failed = true;
        return false;
    }
    position += count;
    if (position > size)
        size = position;
    return true;
}

bool File::read(void* block, int32_t count) {
    // Held against what is left first, so that a short file leaves the block untouched.
    if (stream == nullptr || count < 0 || count > size - position ||
        std::fread(block, 1, static_cast<size_t>(count), stream.get()) !=
            static_cast<size_t>(count)) {
        failed = true;
        return false;
    }
    position += count;
    return true;
}

bool File::seek(int32_t offset, int32_t whence) {
    const int origin = whence == 0 ? SEEK_SET : whence == 1 ? SEEK_CUR : SEEK_END;
    if (stream == nullptr || std::fseek(stream.get(), offset, origin) != 0) {
        failed = true;
        return false;
    }
    position = static_cast<int32_t>(std::ftell(stream.get()));
    return true;
}

void File::close() {
    if (stream != nullptr && std::fclose(stream.release()) != 0)
        failed = true;
    position = 0;
    size = 0;
    buffer.reset();
    bufferLength = 0;
    buffered = false;
    readPosition = lineStart = lineEnd = 0;
    hasNextFeed = false;
    physicalLine = 1;
}

bool File::readWhole(std::string& content) {
    content.resize(static_cast<size_t>(size));
    return seek(0, 0) && read(content.data(), size);
}

void File::loadBuffer() {
    buffered = true;
    if (stream == nullptr)
        return;
    buffer.reset(new char[static_cast<size_t>(size)]); // not cleared first: logs are large
    if (seek(0, 0) && read(buffer.get(), size))
        bufferLength = static_cast<size_t>(size);
    const std::string_view start(buffer.get(), std::min(bufferLength, ByteOrderMark.size()));
    if (start == ByteOrderMark)
        readPosition = lineStart = lineEnd = ByteOrderMark.size();
}

bool File::hasLine() {
    if (!buffered)
        loadBuffer();
    const char* text = buffer.get();
    const size_t end = bufferLength;
    size_t start = readPosition;
    for (; start < end && (endsLine(text[start]) || text[start] == 0); ++start) {
        const bool pairFollows = text[start] == '\r' && start + 1 < end && text[start + 1] == '\n';
        if (endsLine(text[start]) && !pairFollows)
            ++physicalLine;
    }
    if (start == end)
        return false;
    lineStart = start;
    if (nextFeed < start || !hasNextFeed) {
        const void* feed = std::memchr(text + start, '\n', end - start);
        nextFeed =
            feed != nullptr ? static_cast<size_t>(static_cast<const char*>(feed) - text) : end;
        hasNextFeed = true;
    }
    lineEnd = nextFeed;
    if (const void* back = std::memchr(text + start, '\r', lineEnd - start))
        lineEnd = static_cast<size_t>(static_cast<const char*>(back) - text);
    readPosition = lineEnd;
    return true;
}

std::string_view File::lineView() const { return {buffer.get() + lineStart, lineEnd - lineStart}; }

bool File::exists(const String& name) {
    FILE* stream = name.empty() ? nullptr : system::openFile(name, "r");
    if (stream == nullptr)
        return false;
    std::fclose(stream);
    return true;
}

bool replaceFileSafely(const String& name, std::string_view content, const char* backupEnding) {
    const String draft = name + ".new";
    File file(draft, FileWrite);
    bool written = !file.hasFailed() &&
                   content.size() <= static_cast<size_t>(std::numeric_limits<int32_t>::max()) &&
                   file.write(content.data(), static_cast<int32_t>(content.size()));
    file.close();
    written = written && !file.hasFailed();
    written = written && system::replaceFileKeeping(draft, name, name + backupEnding);
    if (!written)
        system::removeFile(draft);
    return written;
}

} // namespace zel
