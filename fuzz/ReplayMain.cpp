// Replays files through a fuzz target without libFuzzer: the corpus and the
// inputs of crashes found earlier, as a regression test of the normal suite.
// Usage: replay_<target> <folder or file>...; missing folders are skipped.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

std::vector<std::filesystem::path> inputsIn(const std::filesystem::path &place)
{
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_regular_file(place))
        files.push_back(place);
    else if (std::filesystem::is_directory(place)) {
        for (const auto &entry : std::filesystem::directory_iterator(place)) {
            if (entry.is_regular_file())
                files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::filesystem::path &file : inputsIn(argv[i])) {
            std::ifstream in(file, std::ios::binary);
            const std::vector<char> bytes { std::istreambuf_iterator<char>(in),
                                            std::istreambuf_iterator<char>() };
            std::printf("replaying %s\n", file.c_str());
            std::fflush(stdout);
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
            ++replayed;
        }
    }
    std::printf("%d inputs replayed\n", replayed);
    // A replay that found nothing to replay has lost its corpus.
    return replayed > 0 ? 0 : 1;
}
