// Files mapped into memory.

#include "platform/system/file_mapping.h"

#include <cerrno>
#include <map>
#include <memory>
#include <mutex>
#include <new>

#include <fcntl.h>
#include <platform/file.h>
#include <sys/mman.h>

namespace {

struct Handle {
    explicit Handle(std::shared_ptr<CFile> opened) : file(std::move(opened)) {}

    std::shared_ptr<CFile> file;
    std::size_t mapped = 0;  // bytes of a mapping, 0 for a file
};

struct Views {
    std::mutex mutex;
    std::map<const void*, std::size_t> sizes;
};

// Never destroyed: views may be unmapped by destructors that run after this file's would.
Views& TheViews() {
    static Views& views = *new Views;
    return views;
}

UINT OpenFlags(DWORD access, DWORD share, DWORD disposition) {
    const UINT mode = (access & GENERIC_WRITE) != 0 ? CFile::modeReadWrite : CFile::modeRead;
    const UINT sharing =
        (share & FILE_SHARE_READ) != 0 ? CFile::shareDenyWrite : CFile::shareExclusive;
    return mode | sharing | (disposition == CREATE_ALWAYS ? CFile::modeCreate : UINT{0});
}

// Space is taken at once: on a full disk a write into the view would otherwise end the process.
bool Lengthen(const CFile& file, std::uint64_t size) {
    constexpr std::uint64_t kMax = std::uint64_t{1} << 62;
    if (size > kMax) {
        return false;
    }
    int result = EINTR;
    while (result == EINTR) {  // signals break off taking much space
        result = posix_fallocate(file.GetDescriptor(), 0, static_cast<off_t>(size));
    }
    return result == 0;
}

std::unique_ptr<Handle> MakeMapping(const Handle& opened, DWORD protection, std::uint64_t size) {
    const std::uint64_t length = opened.file->GetLength();
    const std::uint64_t wanted = size != 0 ? size : length;
    if (wanted == 0 ||
        (wanted > length && (protection != PAGE_READWRITE || !Lengthen(*opened.file, wanted)))) {
        return nullptr;
    }
    auto mapping = std::make_unique<Handle>(opened.file);
    mapping->mapped = wanted;
    return mapping;
}

}  // namespace

HANDLE CreateFileA(const char* name, DWORD access, DWORD share, DWORD disposition) {
    try {
        auto file = std::make_shared<CFile>();
        if (!file->Open(name, OpenFlags(access, share, disposition))) {
            return nullptr;
        }
        return new Handle(std::move(file));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

HANDLE CreateFileMappingA(HANDLE file, DWORD protection, std::uint64_t size) {
    try {
        return MakeMapping(*static_cast<Handle*>(file), protection, size).release();
    } catch (const CFileException&) {
        return nullptr;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* MapViewOfFile(HANDLE mapping, DWORD access) {
    const auto* mapped = static_cast<Handle*>(mapping);
    const int protection = access == FILE_MAP_WRITE ? PROT_READ | PROT_WRITE : PROT_READ;
    void* view =
        mmap(nullptr, mapped->mapped, protection, MAP_SHARED, mapped->file->GetDescriptor(), 0);
    if (view == MAP_FAILED) {
        return nullptr;
    }
    try {
        Views& views = TheViews();
        const std::lock_guard hold(views.mutex);
        views.sizes.emplace(view, mapped->mapped);
    } catch (const std::bad_alloc&) {
        munmap(view, mapped->mapped);
        return nullptr;
    }
    return view;
}

bool UnmapViewOfFile(void* view) {
    if (view == nullptr) {
        return false;  // without making the list of views, for which there may be no memory
    }
    Views& views = TheViews();
    const std::lock_guard hold(views.mutex);
    const auto found = views.sizes.find(view);
    if (found == views.sizes.end()) {
        return false;
    }
    munmap(view, found->second);
    views.sizes.erase(found);
    return true;
}

bool CloseHandle(HANDLE handle) {
    delete static_cast<Handle*>(handle);
    return handle != nullptr;
}

std::size_t kv::ViewSize(const void* view) {
    Views& views = TheViews();
    const std::lock_guard hold(views.mutex);
    const auto found = views.sizes.find(view);
    return found != views.sizes.end() ? found->second : 0;
}

void kv::CloseMapped(HANDLE file, HANDLE mapping, void* view) {
    UnmapViewOfFile(view);
    CloseHandle(mapping);
    CloseHandle(file);
}
