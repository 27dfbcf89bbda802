#pragma once

#include <string_view>
#include <vector>

/// One key=value of a data line: views into the line's text.
struct DataToken {
    std::string_view key;
    std::string_view value; // up to a second "="

    /// `name` in small letters; the line may write it in any case.
    bool is(std::string_view name) const;
};

/// Splits a data line at single blanks and each token at "="; a token without "=" is left out.
/// Replaces what `tokens` held, so that its memory is reused for the next line.
void splitDataLine(std::string_view line, std::vector<DataToken>& tokens);
