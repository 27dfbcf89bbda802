#include "engine/core/File.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/TextLines.h"

namespace zel {

namespace {

constexpr const char* Modes[] = {"rb", "wb", "r+b", "a+b"};
constexpr size_t LineBufferSize =
    65536; // bytes at first, at most; it stays in the processor's cache

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
        fail();
        return;
    }
    if (mode == FileWrite)
        return;
    long end = std::fseek(stream.get(), 0, SEEK_END) == 0 ? std::ftell(stream.get()) : -1;
    if (end < 0 || end > std::numeric_limits<int32_t>::max()) {
        fail();
        why = end < 0 ? why : FileFault::TooLarge;
        close();
        return;
    }
    size = static_cast<int32_t>(end);
    if (mode != FileAppend)
        std::rewind(stream.get());
    else
        position = size;
}

/// Records the failure of the last system call.
bool File::fail() {
    if (why == FileFault::None)
        why = system::lastFault();
    failed = true;
    return false;
}

/// A signal may interrupt the system in between; any other error is noted and ends the reading.
size_t File::readBlock(void* block, size_t count) {
    size_t done = 0;
    while (done < count) {
        errno = 0;
        done += std::fread(static_cast<char*>(block) + done, 1, count - done, stream.get());
        if (std::ferror(stream.get()) == 0)
            break;
        if (errno != EINTR) {
            fail();
            break;
        }
        std::clearerr(stream.get());
    }
    return done;
}

bool File::write(const void* block, int32_t count) {
    if (stream == nullptr || count < 0) {
        failed = true;
        return false;
    }
    if (std::fwrite(block, 1, static_cast<size_t>(count), stream.get()) !=
        static_cast<size_t>(count))
        return fail();
    position += count;
    if (position > size)
        size = position;
    return true;
}

bool File::read(void* block, int32_t count) {
    // Checked against the rest of the file first, so that a short file leaves the block unchanged.
    if (stream == nullptr || count < 0 || count > size - position ||
        readBlock(block, static_cast<size_t>(count)) != static_cast<size_t>(count)) {
        failed = true;
        return false;
    }
    position += count;
    return true;
}

bool File::seek(int32_t offset, int32_t whence) {
    const int origin = whence == 0 ? SEEK_SET : whence == 1 ? SEEK_CUR : SEEK_END;
    if (stream == nullptr) {
        failed = true;
        return false;
    }
    if (std::fseek(stream.get(), offset, origin) != 0)
        return fail();
    position = static_cast<int32_t>(std::ftell(stream.get()));
    return true;
}

void File::close() {
    if (stream != nullptr && std::fclose(stream.release()) != 0)
        fail();
    position = 0;
    size = 0;
    buffer.clear();
    filled = readPosition = lineStart = lineEnd = 0;
    nextFeed = Unknown;
    readsLines = afterReturn = false;
    physicalLine = 1;
}

bool File::readWhole(std::string& content) {
    content.resize(size);
    return seek(0, 0) && read(content.data(), size);
}

void File::beginLines() {
    readsLines = true;
    if (stream == nullptr || !seek(0, 0))
        return;
    fillBuffer();
    const std::string_view start(buffer.data(), std::min(filled, ByteOrderMark.size()));
    if (start == ByteOrderMark)
        readPosition = ByteOrderMark.size();
}

/// Drops everything before readPosition and reads on after the rest. False at the end of the file.
bool File::fillBuffer() {
    if (stream == nullptr)
        return false;
    const size_t rest = filled - readPosition;
    if (rest > 0 && readPosition > 0)
        std::memmove(buffer.data(), buffer.data() + readPosition, rest);
    readPosition = 0;
    nextFeed = Unknown;
    filled = rest;
    if (buffer.empty()) // a byte more than a small file, so that its end needs no growing
        buffer.resize(std::min(LineBufferSize, static_cast<size_t>(size) + 1));
    else if (rest == buffer.size()) // a line longer than the buffer
        buffer.resize(buffer.size() * 2);
    const size_t count = readBlock(buffer.data() + filled, buffer.size() - filled);
    filled += count;
    position += static_cast<int32_t>(count);
    return count > 0;
}

/// Position of the first carriage return or line feed; the end of the buffer if there is none.
size_t File::lineEndFrom(size_t start) {
    const char* text = buffer.data();
    const auto find = [text](size_t from, size_t to, char character) {
        const void* found = std::memchr(text + from, character, to - from);
        return found != nullptr ? static_cast<size_t>(static_cast<const char*>(found) - text) : to;
    };
    if (nextFeed == Unknown || nextFeed < start)
        nextFeed = find(start, filled, '\n');
    return find(start, nextFeed, '\r');
}

bool File::hasLine() {
    if (!readsLines)
        beginLines();
    for (;; ++readPosition) {
        if (readPosition == filled && !fillBuffer())
            return false;
        const char character = buffer[readPosition];
        if (!endsLine(character) && character != 0)
            break;
        if (character == '\r' || (character == '\n' && !afterReturn))
            ++physicalLine;
        afterReturn = character == '\r';
    }
    afterReturn = false;
    lineEnd = lineEndFrom(readPosition);
    while (lineEnd == filled) {
        const size_t searched = filled - readPosition;
        const bool goesOn = fillBuffer();
        lineEnd = goesOn ? lineEndFrom(searched) : filled;
        if (!goesOn)
            break;
    }
    lineStart = readPosition;
    readPosition = lineEnd;
    return true;
}

std::string_view File::lineView() const { return {buffer.data() + lineStart, lineEnd - lineStart}; }

bool File::exists(const String& name) {
    FILE* stream = name.empty() ? nullptr : system::openFile(name, "r");
    if (stream == nullptr)
        return false;
    std::fclose(stream);
    return true;
}

bool readFile(const String& name, int32_t most, std::string& content) {
    File file(name, FileRead);
    return !file.hasFailed() && file.fileSize() <= most && file.readWhole(content);
}

FileFault readFileWhole(const String& name, std::string& content) {
    File file(name, FileRead);
    if (file.readWhole(content))
        return FileFault::None;
    content.clear();
    return file.fault();
}

} // namespace zel
