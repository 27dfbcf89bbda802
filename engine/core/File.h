#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "engine/core/DataStream.h"
#include "engine/core/String.h"

namespace zel {

enum FileMode : int32_t { FileRead = 0, FileWrite = 1, FileUpdate = 2, FileAppend = 3 };

/// A file as binary blocks and as lines of text.
///
/// Only regular files open. A name may be written with backslashes on every system. Errors set
/// hasFailed(), which stays set until the object dies; a caller looks at it once at the end.
class File : public DataStream {
public:
    /// Opens the file in one of the modes above.
    File(const String& name, int32_t mode);
    ~File() override = default;

    /// One block of `count` bytes. False, and hasFailed(), if it doesn't go through whole. A read
    /// past the end leaves the block as it was.
    bool write(const void* block, int32_t count);
    bool read(void* block, int32_t count);
    /// whence: 0 from the start, 1 from here, 2 from the end.
    bool seek(int32_t offset, int32_t whence);
    /// Flushes and closes; a write that only fails now sets hasFailed() too.
    void close();

    bool isOpen() const { return stream != nullptr; }
    bool hasFailed() const { return failed; }
    bool atEnd() const { return position >= size; }
    int32_t fileSize() const { return size; }
    int32_t bufferSize() const override { return static_cast<int32_t>(filled); }

    /// Finds the next line; false at the end of the file. A line ends at a carriage return, a line
    /// feed or the end of the file; runs of these two and of zero bytes in front of a line are
    /// skipped, so that no line is empty. A byte order mark in front of the first is skipped.
    bool hasLine();
    /// The line that hasLine() found, without its end.
    String getLine() const { return String(lineView()); }
    /// The same without a copy; valid until the next hasLine().
    std::string_view lineView() const;
    /// Number of that line in the file, as an editor counts: from 1, empty lines included.
    int32_t lineNumber() const { return physicalLine; }

    /// The rest of the file from the start on, read at once. False if it can't be read.
    bool readWhole(std::string& content);

    /// Whether the file opens for reading.
    static bool exists(const String& name);

private:
    struct Closer {
        void operator()(FILE* file) const { std::fclose(file); }
    };
    static constexpr size_t Unknown = SIZE_MAX;
    void beginLines();
    bool fillBuffer();
    size_t lineEndFrom(size_t start);

    std::unique_ptr<FILE, Closer> stream;
    int32_t position = 0; // after the last read or write
    int32_t size = 0;
    bool failed = false;

    // For lines: the part of the file that is being read, which moves on as lines are taken.
    std::vector<char> buffer;
    size_t filled = 0;       // bytes of it that are in use
    size_t readPosition = 0; // where the next line is looked for
    size_t lineStart = 0;    // of the present line, and its end
    size_t lineEnd = 0;
    size_t nextFeed = Unknown; // the next line feed in the buffer, or its end
    bool readsLines = false;
    bool afterReturn = false; // a line feed now belongs to the carriage return before it
    int32_t physicalLine = 1;
};

/// Reads a file of at most that many bytes. False, with nothing of use in `content`, if it is
/// missing or longer or can't be read.
[[nodiscard]] bool readFile(const String& name, int32_t most, std::string& content);

/// Writes the file whole beside its final name, flushes and checks it, and renames it over the old
/// one, which stays behind under its name with `backupEnding`. False leaves the old file as it was.
[[nodiscard]] bool replaceFileSafely(const String& name, std::string_view content,
                                     const char* backupEnding = ".bak");

} // namespace zel
