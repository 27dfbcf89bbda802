#include "tools/menucheck/SaidTexts.h"

#include <algorithm>

#include "engine/core/Language.h"

namespace menucheck {

using zel::String;

namespace {

constexpr size_t MostTexts = 1000;
constexpr std::string_view Opening = "(";
constexpr std::string_view Closing = ")";

using Alternatives = std::vector<String>;

/// "3" and "3..5"; false for anything else.
bool readRange(const String& word, int32_t& first, int32_t& last) {
    const size_t dots = word.view().find("..");
    first = zel::toInt(word.view().substr(0, dots));
    last = dots == std::string_view::npos ? first : zel::toInt(word.view().substr(dots + 2));
    return word.view().find_first_not_of("0123456789.") == std::string_view::npos && first > 0 &&
           last >= first && last - first < static_cast<int32_t>(MostTexts);
}

/// Each list of arguments, lengthened by each of the alternatives.
std::vector<std::vector<String>> lengthened(const std::vector<std::vector<String>>& lists,
                                            const Alternatives& alternatives) {
    std::vector<std::vector<String>> result;
    for (const std::vector<String>& list : lists)
        for (const String& alternative : alternatives) {
            result.push_back(list);
            result.back().push_back(alternative);
        }
    if (result.size() > MostTexts)
        result.resize(MostTexts);
    return result;
}

class NoteReader {
public:
    explicit NoteReader(const std::vector<String>& words) : words(words) {}

    SaidTexts read() {
        if (!isAt(Opening)) {
            said.texts = readText();
        } else {
            std::vector<std::vector<String>> parts{{}};
            while (isAt(Opening))
                parts = lengthened(parts, readGroup());
            for (const std::vector<String>& sentences : parts)
                said.texts.push_back(joined(sentences));
        }
        if (said.fault.empty() && next < words.size())
            said.fault = "a parenthesis is missing";
        return said;
    }

private:
    bool isAt(std::string_view word) const { return next < words.size() && words[next] == word; }

    static String joined(const std::vector<String>& sentences) {
        String text;
        for (const String& sentence : sentences)
            text += text.empty() ? sentence : " " + sentence;
        return text;
    }

    Alternatives readGroup() {
        ++next; // the parenthesis
        Alternatives texts = readText();
        if (isAt(Closing))
            ++next;
        else if (said.fault.empty())
            said.fault = "a parenthesis is missing";
        return texts;
    }

    Alternatives readText() {
        int32_t first = 0;
        int32_t last = 0;
        if (next == words.size() || !readRange(words[next], first, last)) {
            said.fault = "the number of a text is missing";
            next = words.size();
            return {};
        }
        ++next;
        std::vector<std::vector<String>> arguments{{}};
        size_t count = 0;
        for (; next < words.size() && !isAt(Closing); ++count)
            arguments =
                lengthened(arguments, isAt(Opening) ? readGroup() : Alternatives{words[next++]});
        Alternatives texts;
        for (int32_t number = first; number <= last; ++number)
            fill(number, count, arguments, texts);
        return texts;
    }

    void fill(int32_t number, size_t count, const std::vector<std::vector<String>>& arguments,
              Alternatives& texts) {
        said.numbers.insert(number);
        const String* text = zel::Language::find(number);
        if (text == nullptr)
            return;
        const std::vector<char> marks = marksOf(*text);
        if (const size_t wanted = std::set<char>(marks.begin(), marks.end()).size();
            wanted != count && said.fault.empty())
            said.fault =
                String("text ") + number + " takes " + static_cast<int32_t>(wanted) + " arguments";
        for (const std::vector<String>& list : arguments)
            texts.push_back(zel::fillMarks(*text, list));
    }

    const std::vector<String>& words;
    size_t next = 0;
    SaidTexts said;
};

} // namespace

SaidTexts readSaidTexts(const std::vector<String>& words) { return NoteReader(words).read(); }

std::vector<char> marksOf(std::string_view text) {
    std::vector<char> marks;
    for (size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == '$' && text[i + 1] >= '1' && text[i + 1] <= '8') {
            const bool isWord = text.substr(i + 2, 1) == "{"; // for the number, beside the number
            if (!isWord || std::find(marks.begin(), marks.end(), text[i + 1]) == marks.end())
                marks.push_back(text[i + 1]);
        }
    return marks;
}

} // namespace menucheck
