#include "help/ChmFile.h"

#include <chm_lib.h>

namespace help {

namespace {

/// A damaged file can claim any size.
constexpr LONGUINT64 largest = LONGUINT64(64) << 20;

bool find(chmFile* handle, const std::string& path, chmUnitInfo& unit) {
    return path.size() < CHM_MAX_PATHLEN
           && chm_resolve_object(handle, path.c_str(), &unit) == CHM_RESOLVE_SUCCESS;
}

int collect(chmFile*, chmUnitInfo* unit, void* paths) {
    static_cast<std::vector<std::string>*>(paths)->emplace_back(unit->path);
    return CHM_ENUMERATOR_CONTINUE;
}

} // namespace

std::unique_ptr<ChmFile> ChmFile::open(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return nullptr;
    }
    chmFile* handle = chm_open(path.string().c_str());
    return handle == nullptr ? nullptr : std::unique_ptr<ChmFile>(new ChmFile(handle));
}

ChmFile::~ChmFile() {
    chm_close(handle_);
}

bool ChmFile::holds(const std::string& path) const {
    chmUnitInfo unit{};
    return find(handle_, path, unit);
}

std::optional<std::string> ChmFile::read(const std::string& path) const {
    chmUnitInfo unit{};
    if (!find(handle_, path, unit) || unit.length > largest) {
        return {};
    }
    std::string bytes(unit.length, '\0');
    const LONGINT64 got =
        chm_retrieve_object(handle_, &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                            static_cast<LONGINT64>(bytes.size()));
    if (got != static_cast<LONGINT64>(bytes.size())) {
        return {};
    }
    return bytes;
}

std::vector<std::string> ChmFile::paths() const {
    std::vector<std::string> paths;
    chm_enumerate(handle_, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, &collect, &paths);
    return paths;
}

} // namespace help
