#include "compile/Container.h"

#include <utility>

#include "compile/Bytes.h"

namespace compile {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t fileHeaderSize = 0x60;
constexpr std::size_t sizeHeaderSize = 0x18;
constexpr std::string_view storage = "::DataSpace/Storage/MSCompressed/";
constexpr std::string_view transformation = "{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}";

/// Text of ASCII in UTF-16.
std::string wide(std::string_view text) {
    std::string bytes;
    for (const char c : text) {
        bytes.push_back(c);
        bytes.push_back('\0');
    }
    return bytes;
}

/// The names of the two sections.
std::string sectionNames() {
    constexpr std::string_view names[] = {"Uncompressed", "MSCompressed"};
    std::string list;
    append16(list, std::size(names));
    for (const std::string_view name : names) {
        append16(list, name.size());
        list += wide(name);
        append16(list, 0);
    }
    std::string bytes;
    append16(bytes, (list.size() + 2) / 2);
    return bytes + list;
}

/// How the compressed section has to be unpacked: both sizes in frames of 32 KB.
std::string compressionSettings() {
    std::string bytes;
    append32(bytes, 6); // numbers that follow
    bytes += "LZXC";
    append32(bytes, 2);                 // its version
    append32(bytes, framesPerInterval); // between two places to begin at
    append32(bytes, framesPerInterval); // in the window, which is thus an interval
    append32(bytes, 1);
    append32(bytes, 0);
    return bytes;
}

std::string fileHeader(const PackOptions& options, std::size_t directorySize) {
    constexpr unsigned version = 3;
    std::string bytes = "ITSF";
    append32(bytes, version);
    append32(bytes, fileHeaderSize);
    append32(bytes, 1);
    for (unsigned shift = 32; shift > 0;) { // the one number with its highest byte first
        shift -= 8;
        bytes.push_back(static_cast<char>(options.time >> shift & 0xFFU));
    }
    append32(bytes, options.language);
    bytes += "\x10\xFD\x01\x7C\xAA\x7B\xD0\x11\x9E\x0C\x00\xA0\xC9\x22\xE6\xEC"sv;
    bytes += "\x11\xFD\x01\x7C\xAA\x7B\xD0\x11\x9E\x0C\x00\xA0\xC9\x22\xE6\xEC"sv;
    append64(bytes, fileHeaderSize);
    append64(bytes, sizeHeaderSize);
    append64(bytes, fileHeaderSize + sizeHeaderSize);
    append64(bytes, directorySize);
    append64(bytes, fileHeaderSize + sizeHeaderSize + directorySize);
    return bytes;
}

std::string sizeHeader(std::size_t fileSize) {
    std::string bytes;
    append64(bytes, 0x1FE);
    append64(bytes, fileSize);
    append64(bytes, 0);
    return bytes;
}

} // namespace

Container::Container(PackOptions options)
    : options_(std::move(options)), stream_(options_.jobs, options_.stop) {}

bool Container::add(std::string_view name, std::string_view content, Section section) {
    if (name.size() > longestName || !names_.insert(directoryKey(name)).second) {
        return false;
    }
    const bool plain = section == Section::plain;
    const std::uint64_t offset = plain ? plainFiles_.size() : stream_.size();
    entries_.push_back({std::string(name), section, offset, content.size()});
    if (plain) {
        plainFiles_ += content;
    } else {
        stream_.append(content);
    }
    addFolderOf(name);
    return true;
}

/// Each folder that files lie in directly has an entry of its own.
void Container::addFolderOf(std::string_view name) {
    if (!name.starts_with('/')) {
        return;
    }
    const std::string_view folder = name.substr(0, name.rfind('/') + 1);
    if (names_.insert(directoryKey(folder)).second) {
        entries_.push_back({std::string(folder), Section::plain, 0, 0});
    }
}

/// The uncompressed section without the compressed one, which lies in it as its last file.
std::string Container::plainSection() {
    std::string bytes = std::move(plainFiles_);
    const auto put = [&](std::string name, std::string_view content) {
        entries_.push_back({std::move(name), Section::plain, bytes.size(), content.size()});
        bytes += content;
    };
    const std::string prefix(storage);
    const std::string instance =
        prefix + "Transform/" + std::string(transformation) + "/InstanceData/";
    put("::DataSpace/NameList", sectionNames());
    // Half of the name, as all compilers write it.
    put(prefix + "Transform/List", wide(transformation.substr(0, transformation.size() / 2)));
    std::string size;
    append64(size, stream_.size());
    put(prefix + "SpanInfo", size);
    put(prefix + "ControlData", compressionSettings());
    put(instance + "ResetTable", stream_.resetTable());
    entries_.push_back({instance, Section::plain, 0, 0});
    entries_.push_back(
        {prefix + "Content", Section::plain, bytes.size(), stream_.compressedSize()});
    return bytes;
}

std::optional<std::string> Container::pack() {
    if (!stream_.finish(options_.progress)) {
        return {};
    }
    const std::string plain = plainSection();
    const std::string directory = formatDirectory(std::move(entries_), options_.language);
    const std::size_t size = fileHeaderSize + sizeHeaderSize + directory.size() + plain.size()
                             + stream_.compressedSize();
    std::string bytes;
    bytes.reserve(size); // exactly, as this is the largest piece of memory
    bytes += fileHeader(options_, directory.size());
    bytes += sizeHeader(size);
    bytes += directory;
    bytes += plain;
    stream_.moveTo(bytes);
    return bytes;
}

} // namespace compile
