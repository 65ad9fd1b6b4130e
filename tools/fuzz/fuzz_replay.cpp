// Runs every file of the folders (or the files) named on the command line through the fuzz
// target once, without the fuzzing engine: the seed corpus as a quick test on any compiler.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace fs = std::filesystem;

int main(int argc, char **argv)
{
    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i) {
        const fs::path p(argv[i]);
        if (fs::is_directory(p)) {
            for (const auto &entry : fs::directory_iterator(p))
                if (entry.is_regular_file())
                    inputs.push_back(entry.path());
        } else {
            inputs.push_back(p);
        }
    }
    if (inputs.empty()) {
        std::fprintf(stderr, "no inputs\n");
        return 2;
    }
    for (const fs::path &p : inputs) {
        std::ifstream in(p, std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    }
    std::printf("%zu inputs replayed\n", inputs.size());
    return 0;
}
