#include <cstdint>
#include <string>
#include <string_view>

#include "Require.h"
#include "compile/Container.h"
#include "support/StrictReader.h"

/// Whatever is compressed is unpacked again, by another reader. The first byte says how often the
/// rest is repeated, so that short inputs fill frames and intervals, too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    constexpr std::size_t most = 3 * 65536;
    std::string content;
    for (unsigned i = 0; i <= data[0] && content.size() < most; ++i) {
        content += bytes;
        content.resize(content.size() + i * i % 300, static_cast<char>(i));
    }
    compile::Container container({.jobs = 1});
    require(container.add("/repeated", content) && container.add("/once", bytes), "not added");
    const std::string packed = container.pack().value_or("");
    test::StrictReader reader(packed);
    require(reader.fault() == 0, "the directory cannot be read");
    const auto files = reader.files();
    require(files.size() == 2, "a file cannot be unpacked");
    require(files.at("/repeated") == content && files.at("/once") == bytes, "other bytes");
    return 0;
}
