#include "app/report/LogEvent.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <tuple>

#include "app/report/ByteMarks.h"

namespace {

constexpr size_t LongestKey = sizeof(uint64_t) - 1;

/// A key's letters, lowered and packed into one number, the first in the lowest byte, so that keys
/// are compared as numbers.
constexpr uint64_t packed(std::string_view key) {
    uint64_t number = 0;
    for (size_t i = 0; i < key.size(); ++i)
        number |= uint64_t(uint8_t(key[i] | 0x20)) << (8 * i);
    return number;
}

struct KnownKey {
    uint64_t letters = 0;
    LogKey key = LogKey::Count;
};
using KeyTable = std::array<KnownKey, 32>;

/// A key's position in the table: the known keys differ in first letter or length.
constexpr size_t slotOf(uint64_t letters, size_t length) {
    return size_t(letters + 4 * length) % std::tuple_size_v<KeyTable>;
}

constexpr KeyTable makeKeyTable() {
    constexpr std::string_view Names[] = {"atype",   "id",  "pid", "name", "type",
                                          "country", "tid", "aid", "dmg",  "botid"};
    static_assert(std::size(Names) == size_t(LogKey::Count));
    KeyTable table;
    for (size_t i = 0; i < std::size(Names); ++i)
        table[slotOf(packed(Names[i]), Names[i].size())] = {packed(Names[i]), LogKey(i)};
    return table;
}

constexpr size_t keysIn(const KeyTable& table) {
    size_t count = 0;
    for (const KnownKey& known : table)
        count += known.key != LogKey::Count;
    return count;
}

constexpr KeyTable Keys = makeKeyTable();
static_assert(keysIn(Keys) == size_t(LogKey::Count), "two keys share a slot");

/// Up to eight bytes, the first in the lowest; zeros beyond the end of the text.
inline uint64_t bytesAt(std::string_view text, size_t start) {
    uint64_t bytes = 0;
    if (start + sizeof bytes <= text.size())
        std::memcpy(&bytes, text.data() + start, sizeof bytes);
    else
        std::memcpy(&bytes, text.data() + start, text.size() - start);
    return bytes;
}

/// LogKey::Count for a key that the report doesn't read.
inline LogKey keyAt(std::string_view text, size_t start, size_t length) {
    if (length > LongestKey)
        return LogKey::Count;
    const uint64_t lowered = bytesAt(text, start) | 0x2020202020202020U;
    const uint64_t letters = lowered & ((uint64_t(1) << (8 * length)) - 1);
    const KnownKey& known = Keys[slotOf(letters, length)];
    return known.letters == letters ? known.key : LogKey::Count;
}

/// The length of a position clause glued to the front of a key without a colon of its own, as in
/// "POS(1,2,3)ID"; 0 for none. The report has no use for the clause itself.
size_t clauseLength(std::string_view key) {
    for (const char character : key) // most keys are short: a loop beats a call
        if (character == '(')
            return key.find(')') + 1; // 0 without a ")"
    return 0;
}

} // namespace

// The rule is: split the line at blanks, and add each token without a colon to the token before it.
// So a value extends from the first colon of its token to the next token that has a colon. This
// finds the same without making tokens: for each first colon of a token, the key before it and
// the end of the value before that key.
LogEvent::LogEvent(std::string_view text, size_t length) : line(text.data()) {
    using TokenMarks = ByteMarks<' ', ':'>;
    length = std::min(length, MostBytes);
    LogKey key = LogKey::Count; // of the value that is being read
    size_t valueStart = 0;
    size_t token = 0; // start of the token that holds the present colon
    const auto endValue = [&](size_t end) {
        if (key != LogKey::Count)
            spans[size_t(key)] = {uint16_t(valueStart), uint16_t(end - valueStart)};
    };
    for (size_t start = 0; start < length; start += TokenMarks::Width) {
        TokenMarks marks(text, start);
        if (length - start < TokenMarks::Width)
            marks.keep(length - start);
        for (uint64_t colons = marks.second; colons != 0; colons &= colons - 1) {
            const size_t colon = start + TokenMarks::lowest(colons);
            const uint64_t below = (colons & (0 - colons)) - 1;
            if (const uint64_t blanks = marks.first & below; blanks != 0)
                token = start + TokenMarks::highest(blanks) + 1;
            if (token < valueStart)
                continue; // a further colon of the same token
            endValue(token);
            key = keyAt(text, token, colon - token);
            if (key == LogKey::Count) {
                const size_t clause = clauseLength({text.data() + token, colon - token});
                if (clause > 0)
                    key = keyAt(text, token + clause, colon - token - clause);
            }
            valueStart = colon + 1;
        }
        if (marks.first != 0)
            token = start + TokenMarks::highest(marks.first) + 1;
    }
    endValue(length);
}
