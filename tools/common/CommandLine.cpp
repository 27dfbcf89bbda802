#include "tools/common/CommandLine.h"

#include <algorithm>
#include <charconv>

namespace tools {

namespace {

constexpr size_t OptionsColumn = 20; // column of the help at which the descriptions begin

/// The help of our programs: usage, description, options, ending.
class HelpText : public CLI::Formatter {
public:
    explicit HelpText(const std::string& usageLine) : usageLine(usageLine) {
        column_width(OptionsColumn);
    }

    std::string make_help(const CLI::App* app, std::string /*name*/,
                          CLI::AppFormatMode mode) const override {
        return usageLine + app->get_description() + "\n" + make_groups(app, mode) + "\n" +
               make_footer(app);
    }
    // An option's value, without the relations that CLI11 would list here.
    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_type_size() == 0 ? "" : " " + option->get_type_name();
    }

private:
    std::string usageLine;
};

std::string rangeText(const std::string& least, const std::string& most) {
    return "a number from " + least + " to " + most;
}

/// Reads the whole text as one number of the range.
template <typename Number, typename... Format>
bool readNumber(const std::string& text, Number least, Number most, Number& number,
                Format... format) {
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number, format...);
    return error == std::errc() && end == last && number >= least && number <= most;
}

} // namespace

CommandLine::CommandLine(const std::string& program, const std::string& usage,
                         const std::string& description, const std::string& ending)
    : CLI::App(description, program), usageLine("Usage: " + program + " " + usage + "\n") {
    formatter(std::make_shared<HelpText>(usageLine));
    footer(ending);
    set_help_flag("-h,--help", "show this help");
    allow_windows_style_options(false); // a path may begin with a slash
    option_defaults()->take_last();
}

CallReading CommandLine::read(std::vector<std::string> words) {
    std::reverse(words.begin(), words.end()); // CLI11 takes them from the end
    try {
        parse(std::move(words));
        return {};
    } catch (const CLI::CallForHelp&) {
        return {CallKind::Help, help()};
    } catch (const CLI::ParseError& error) {
        return wrong(error.what());
    }
}

CallReading CommandLine::wrong(const std::string& message) const {
    return {CallKind::Wrong, get_name() + ": " + message + "\n" + usageLine + get_name() +
                                 " --help lists the options\n"};
}

// CLI11 would read "010" as an octal and "0x10" as a hexadecimal number: the text is made plain
// before it is converted.
CLI::Validator wholeNumber(int64_t least, int64_t most) {
    return CLI::Validator(
        [=](std::string& text) {
            int64_t number = 0;
            if (!readNumber(text, least, most, number))
                return "'" + text + "' is not " +
                       rangeText(std::to_string(least), std::to_string(most));
            text = std::to_string(number);
            return std::string();
        },
        "");
}

CLI::Validator decimalNumber(double least, double most) {
    return CLI::Validator(
        [=](std::string& text) {
            double number = 0;
            if (readNumber(text, least, most, number, std::chars_format::fixed))
                return std::string();
            return "'" + text + "' is not " +
                   rangeText(CLI::detail::to_string(least), CLI::detail::to_string(most));
        },
        "");
}

CLI::Validator nameOfFile() {
    return CLI::Validator(
        [](std::string& text) {
            return text.empty() || text.compare(0, 2, "--") == 0 ? "'" + text + "' is no name"
                                                                 : std::string();
        },
        "");
}

} // namespace tools
