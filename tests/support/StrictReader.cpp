#include "support/StrictReader.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mspack.h>

namespace test {

namespace {

/// What the library takes for a file: the help, or what it unpacks.
struct MemoryFile {
    std::string_view input;
    std::string* output = nullptr;
    std::size_t place = 0;
};

MemoryFile* of(mspack_file* file) {
    return reinterpret_cast<MemoryFile*>(file);
}

/// The library hands the name on as it is, so it can be anything.
const char* nameOf(const MemoryFile& file) {
    return reinterpret_cast<const char*>(&file);
}

mspack_file* open(mspack_system*, const char* name, int) {
    return reinterpret_cast<mspack_file*>(
        new MemoryFile(*reinterpret_cast<const MemoryFile*>(name)));
}

void close(mspack_file* file) {
    delete of(file);
}

int read(mspack_file* file, void* buffer, int bytes) {
    MemoryFile& from = *of(file);
    const std::string_view got =
        from.input.substr(from.place, static_cast<std::size_t>(std::max(bytes, 0)));
    std::memcpy(buffer, got.data(), got.size());
    from.place += got.size();
    return static_cast<int>(got.size());
}

int write(mspack_file* file, void* buffer, int bytes) {
    of(file)->output->append(static_cast<const char*>(buffer), static_cast<std::size_t>(bytes));
    return bytes;
}

int seek(mspack_file* file, off_t offset, int mode) {
    MemoryFile& in = *of(file);
    const auto size = static_cast<off_t>(in.input.size());
    const off_t from = mode == MSPACK_SYS_SEEK_START ? 0
                       : mode == MSPACK_SYS_SEEK_CUR ? static_cast<off_t>(in.place)
                                                     : size;
    if (from + offset < 0 || from + offset > size) {
        return -1;
    }
    in.place = static_cast<std::size_t>(from + offset);
    return 0;
}

off_t tell(mspack_file* file) {
    return static_cast<off_t>(of(file)->place);
}

void ignore(mspack_file*, const char*, ...) {}

void* allocate(mspack_system*, std::size_t bytes) {
    return std::malloc(bytes);
}

void copy(void* from, void* to, std::size_t bytes) {
    std::memcpy(to, from, bytes);
}

} // namespace

struct StrictReader::Parts {
    mspack_system system{open,   close,    read,      write, seek,   tell,
                         ignore, allocate, std::free, copy,  nullptr};
    MemoryFile help;
    mschm_decompressor* reader = nullptr;
    mschmd_header* header = nullptr;
};

StrictReader::StrictReader(std::string_view bytes) : parts_(std::make_unique<Parts>()) {
    parts_->help.input = bytes;
    parts_->reader = mspack_create_chm_decompressor(&parts_->system);
    parts_->header = parts_->reader->open(parts_->reader, nameOf(parts_->help));
}

StrictReader::~StrictReader() {
    if (parts_->header != nullptr) {
        parts_->reader->close(parts_->reader, parts_->header);
    }
    mspack_destroy_chm_decompressor(parts_->reader);
}

int StrictReader::fault() const {
    return parts_->reader->last_error(parts_->reader);
}

std::map<std::string, std::string> StrictReader::files() {
    std::map<std::string, std::string> files;
    if (parts_->header == nullptr) {
        return files;
    }
    for (mschmd_file* file = parts_->header->files; file != nullptr; file = file->next) {
        std::string bytes;
        MemoryFile output;
        output.output = &bytes;
        if (parts_->reader->extract(parts_->reader, file, nameOf(output)) == MSPACK_ERR_OK) {
            files.emplace(file->filename, std::move(bytes));
        }
    }
    return files;
}

std::optional<std::size_t> StrictReader::find(const std::string& name) {
    mschmd_file found{};
    const bool isFound = parts_->header != nullptr
                         && parts_->reader->fast_find(parts_->reader, parts_->header, name.c_str(),
                                                      &found, sizeof found)
                                == MSPACK_ERR_OK
                         && found.section != nullptr;
    return isFound ? std::optional(static_cast<std::size_t>(found.length)) : std::nullopt;
}

} // namespace test
