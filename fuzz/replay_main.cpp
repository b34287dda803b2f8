// Runs a fuzz target over given files and folders, for compilers that have no libFuzzer. By hand:
//   build/dev/fuzz/<target> samples fuzz/regressions/<target> crash-0123
// A failing input ends the program as it would under libFuzzer; the last name printed is its file.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace fs = std::filesystem;

namespace {

bool replay(const fs::path &path)
{
    std::ifstream in(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in.is_open() || in.bad()) {
        std::fprintf(stderr, "%s can't be read\n", path.c_str());
        return false;
    }
    std::fprintf(stderr, "%s\n", path.c_str());
    // A block of exactly this size: the address sanitizer then sees a read of a single byte behind the input.
    const std::vector<uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
    return true;
}

std::vector<fs::path> filesBelow(const fs::path &path)
{
    if (!fs::is_directory(path)) return {path};
    std::vector<fs::path> files;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    return files;
}

} // namespace

int main(int argc, char **argv)
{
    int replayed = 0;
    bool allRead = true;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument.starts_with('-')) continue; // an option of libFuzzer
        for (const fs::path &file : filesBelow(argument)) {
            if (replay(file)) {
                ++replayed;
            } else {
                allRead = false;
            }
        }
    }
    std::fprintf(stderr, "%d inputs replayed\n", replayed);
    return allRead && replayed > 0 ? 0 : 1;
}
