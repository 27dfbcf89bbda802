#include "tools/common/CommandLine.h"

#include <CLI/CLI.hpp>
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

Option Option::required() {
    option->required();
    return *this;
}

Option Option::valueName(const std::string& name) {
    option->type_name(name);
    return *this;
}

// CLI11 would read "010" as an octal and "0x10" as a hexadecimal number: the text is made plain
// before it is converted.
Option Option::wholeNumber(int64_t least, int64_t most) {
    option->transform(CLI::Validator(
        [=](std::string& text) {
            int64_t number = 0;
            if (!readNumber(text, least, most, number))
                return "'" + text + "' is not " +
                       rangeText(std::to_string(least), std::to_string(most));
            text = std::to_string(number);
            return std::string();
        },
        ""));
    return *this;
}

Option Option::decimalNumber(double least, double most) {
    option->check(CLI::Validator(
        [=](std::string& text) {
            double number = 0;
            if (readNumber(text, least, most, number, std::chars_format::fixed))
                return std::string();
            return "'" + text + "' is not " +
                   rangeText(CLI::detail::to_string(least), CLI::detail::to_string(most));
        },
        ""));
    return *this;
}

Option Option::nameOfFile() {
    option->check(CLI::Validator(
        [](std::string& text) {
            return text.empty() || text.compare(0, 2, "--") == 0 ? "'" + text + "' is not a name"
                                                                 : std::string();
        },
        ""));
    return *this;
}

Option Option::needs(Option other) {
    option->needs(other.option);
    return *this;
}

Option Option::excludes(Option other) {
    option->excludes(other.option);
    return *this;
}

bool Option::isGiven() const { return option->count() > 0; }

std::string Option::name() const { return option->get_name(); }

CommandLine::CommandLine(const std::string& program, const std::string& usage,
                         const std::string& description, const std::string& ending)
    : app(std::make_unique<CLI::App>(description, program)),
      usageLine("Usage: " + program + " " + usage + "\n") {
    app->formatter(std::make_shared<HelpText>(usageLine));
    app->footer(ending);
    app->set_help_flag("-h,--help", "show this help");
    app->allow_windows_style_options(false); // a path may begin with a slash
    app->option_defaults()->take_last();
}

CommandLine::~CommandLine() = default;

Option CommandLine::addOption(const std::string& name, std::string& value,
                              const std::string& help) {
    return Option(app->add_option(name, value, help));
}

Option CommandLine::addOption(const std::string& name, int32_t& value, const std::string& help) {
    return Option(app->add_option(name, value, help));
}

Option CommandLine::addOption(const std::string& name, uint32_t& value, const std::string& help) {
    return Option(app->add_option(name, value, help));
}

Option CommandLine::addOption(const std::string& name, double& value, const std::string& help) {
    return Option(app->add_option(name, value, help));
}

Option CommandLine::addOption(const std::string& name, std::optional<uint32_t>& value,
                              const std::string& help) {
    return Option(app->add_option(name, value, help));
}

Option CommandLine::addArguments(const std::string& name, std::vector<std::string>& values) {
    return Option(app->add_option(name, values)->take_all());
}

Option CommandLine::addFlag(const std::string& name, bool& isGiven, const std::string& help) {
    return Option(app->add_flag(name, isGiven, help));
}

Option CommandLine::addFlag(const std::string& name, const std::string& help) {
    return Option(app->add_flag(name, help));
}

CallReading CommandLine::read(std::vector<std::string> words) {
    std::reverse(words.begin(), words.end()); // CLI11 takes them from the end
    try {
        app->parse(std::move(words));
        return {};
    } catch (const CLI::CallForHelp&) {
        return {CallKind::Help, app->help()};
    } catch (const CLI::ParseError& error) {
        return wrong(error.what());
    }
}

CallReading CommandLine::wrong(const std::string& message) const {
    const std::string& program = app->get_name();
    return {CallKind::Wrong,
            program + ": " + message + "\n" + usageLine + program + " --help lists the options\n"};
}

} // namespace tools
