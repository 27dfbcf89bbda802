#pragma once

#include <utility>
#include <vector>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"

struct Wording;

/// Why something could not be done: in English for the log and the command line, and in the
/// language in use for a screen.
class Problem {
public:
    Problem() = default;
    /// wording: without a full stop; it outlives this. arguments: for its marks, paths as the
    /// system has them. reason: of the system, if it gives one.
    explicit Problem(const Wording& wording, std::vector<zel::String> arguments = {},
                     zel::FileFault reason = zel::FileFault::None)
        : wording(&wording), arguments(std::move(arguments)), reason(reason) {}

    bool empty() const { return wording == nullptr; }
    /// "Saves can't be moved to Careers: no permission"; empty if there is none.
    zel::String english() const;
    /// Whole sentences, files and folders without their paths: "Saves can't be moved to Careers.
    /// You have no permission for it."
    zel::String text() const;

private:
    const Wording* wording = nullptr;
    std::vector<zel::String> arguments;
    zel::FileFault reason = zel::FileFault::None;
};
