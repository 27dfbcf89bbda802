// Runs one fuzzer's function over the files of a folder: the corpus as a test, with any compiler.
// Each file is also cut, a short one at every length.
#include <algorithm>
#include <fstream>
#include <iterator>

#include "fuzz/FuzzFile.h"

namespace {

constexpr size_t MostLengths = 300;

std::string content(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void run(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(input.data()), input.size());
}

} // namespace

int main(int argc, char** argv) {
    int files = 0;
    if (argc == 2 && std::filesystem::is_directory(argv[1]))
        for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
            const std::string input = content(entry.path());
            run(input);
            const size_t lengths = std::min(input.size(), MostLengths);
            for (size_t part = 0; part < lengths; ++part)
                run(input.substr(0, input.size() * part / lengths));
            ++files;
        }
    std::printf("%d files\n", files);
    return files > 0 ? 0 : 1;
}
