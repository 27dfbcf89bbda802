#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "engine/core/String.h"

/// The keys of a log line that the report reads.
enum class LogKey : uint8_t { AType, Id, Pid, Name, Type, Country, Tid, Aid, Dmg, BotId, Count };

/// One line of the simulator's log: tokens `KEY:value` separated by blanks, in which a value may
/// itself hold blanks. It keeps where in the line the values of the known keys are, and copies
/// nothing.
class LogEvent {
public:
    /// Reads the line, at most its first MostBytes. Any text is accepted. A key may be written in
    /// any case; the last one counts if it occurs twice. REQUIRES: the text outlives the event.
    explicit LogEvent(std::string_view line) : LogEvent(line, line.size()) {}
    /// The same for a line that is the first `length` bytes of a text: faster if more follows,
    /// since 64 bytes are looked at together. REQUIRES: length <= text.size().
    LogEvent(std::string_view text, size_t length);

    /// The value without blanks around it; empty if the line doesn't have the key.
    std::string_view value(LogKey key) const { return zel::trimmed(rawValue(key), ' '); }
    /// The value as zel::toInt reads it: 0 for a missing key and for what isn't a number.
    int32_t number(LogKey key) const {
        const std::string_view digits = rawValue(key);
        uint32_t number = 0;
        size_t count = 0;
        for (; count < digits.size() && count <= MostPlainDigits; ++count) {
            const auto digit = uint32_t(digits[count] - '0');
            if (digit > 9)
                break;
            number = number * 10 + digit;
        }
        // Neither a blank nor a sign in front, and not too many digits.
        return count > 0 && count <= MostPlainDigits ? int32_t(number) : zel::toInt(digits);
    }

    static constexpr size_t MostBytes = 65535; // the simulator's own lines are much shorter

private:
    static constexpr size_t MostPlainDigits = 9; // always fit an int32_t

    /// Part of the line, in bytes.
    struct ValueSpan {
        uint16_t start = 0;
        uint16_t length = 0;
    };
    /// The value with the blanks around it.
    std::string_view rawValue(LogKey key) const {
        const ValueSpan& span = spans[size_t(key)];
        return {line + span.start, span.length};
    }

    const char* line;
    std::array<ValueSpan, size_t(LogKey::Count)> spans;
};
