#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include <gtest/gtest.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

TEST(Corpus, PassesTheFuzzTarget) {
    int inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RAVLIN_CORPUS)) {
        SCOPED_TRACE(entry.path().filename());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
        ++inputs;
    }
    EXPECT_GT(inputs, 0);
}
