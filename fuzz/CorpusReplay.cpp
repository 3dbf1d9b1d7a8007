// Runs the fuzz target once over every file it is given, and over every file
// in every folder it is given: the corpus as a regression test, in any
// build, without libFuzzer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS_DIR_OR_FILE...\n", argv[0]);
        return 2;
    }
    std::vector<std::filesystem::path> inputs;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path path(argv[i]);
        if (std::filesystem::is_directory(path)) {
            for (const auto& entry : std::filesystem::directory_iterator(path)) {
                if (entry.is_regular_file())
                    inputs.push_back(entry.path());
            }
        } else if (std::filesystem::is_regular_file(path)) {
            inputs.push_back(path);
        } else {
            std::fprintf(stderr, "%s: no such file or folder\n", argv[i]);
            return 2;
        }
    }
    // In name order, so that a run is the same run wherever it is made.
    std::sort(inputs.begin(), inputs.end());
    LLVMFuzzerInitialize(&argc, &argv);
    for (const std::filesystem::path& input : inputs) {
        std::ifstream file(input, std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(file)),
                                      std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("%zu inputs replayed\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
