// Files of bytes: opened under a share mode, read, written.

#include "platform/file.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/system/file_sharing.h"

namespace {

static_assert(sizeof(off_t) == 8, "positions have 64 bits");

constexpr UINT kAccessMask = 0x03;
constexpr UINT kShareMask = 0x70;

// The system moves at most this many bytes at once.
constexpr UINT kMaxTransfer = 0x7FFFF000;

int CauseOf(int error) {
    switch (error) {
        case ENOENT:
            return CFileException::fileNotFound;
        case ENOTDIR:
        case ENAMETOOLONG:
        case ELOOP:
            return CFileException::badPath;
        case EMFILE:
        case ENFILE:
            return CFileException::tooManyOpenFiles;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ENXIO:
        case ETXTBSY:
            return CFileException::accessDenied;
        case EBADF:
            return CFileException::invalidFile;
        case EINVAL:
        case ESPIPE:
        case EOVERFLOW:
            return CFileException::badSeek;
        case EIO:
            return CFileException::hardIO;
        case EWOULDBLOCK:
            return CFileException::sharingViolation;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return CFileException::diskFull;
        default:
            return CFileException::genericException;
    }
}

[[noreturn]] void ThrowSystemError() {
    const int error = errno;
    throw CFileException(CauseOf(error), error);
}

// Runs a system call again as long as signals break it off.
template <typename Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

int SystemFlags(UINT flags) {
    // Without O_NONBLOCK opening a pipe would wait for its other end.
    int system = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    switch (flags & kAccessMask) {
        case CFile::modeRead:
            system |= O_RDONLY;
            break;
        case CFile::modeWrite:
            system |= O_WRONLY;
            break;
        default:
            system |= O_RDWR;
            break;
    }
    return (flags & CFile::modeCreate) != 0 ? system | O_CREAT : system;
}

unsigned int AccessOf(UINT flags) {
    switch (flags & kAccessMask) {
        case CFile::modeRead:
            return kv::kReads;
        case CFile::modeWrite:
            return kv::kWrites;
        default:
            return kv::kReads | kv::kWrites;
    }
}

unsigned int BarsOf(UINT flags) {
    switch (flags & kShareMask) {
        case CFile::shareDenyNone:
            return 0;
        case CFile::shareDenyRead:
            return kv::kBarsReaders;
        case CFile::shareDenyWrite:
            return kv::kBarsWriters;
        default:
            return kv::kBarsReaders | kv::kBarsWriters;
    }
}

// Enters a regular file in the table of open files and only then empties it.
int Share(int descriptor, const struct stat& status, UINT flags, kv::FileShare& share) {
    share.device = status.st_dev;
    share.inode = status.st_ino;
    share.descriptor = descriptor;
    if (!kv::EnterShare(share, AccessOf(flags) | BarsOf(flags))) {
        return EWOULDBLOCK;
    }
    const bool emptied = (flags & CFile::modeCreate) != 0 && (flags & CFile::modeNoTruncate) == 0;
    const bool writable = (AccessOf(flags) & kv::kWrites) != 0;
    const bool failed =
        emptied && writable && Uninterrupted([&] { return ftruncate(descriptor, 0); }) != 0;
    return failed ? errno : 0;
}

// Makes an opened descriptor ready for use. 0, or the error number.
int Prepare(int descriptor, UINT flags, kv::FileShare& share) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) {
        return errno;
    }
    if (S_ISDIR(status.st_mode) || S_ISFIFO(status.st_mode)) {
        return EACCES;
    }
    const int problem = S_ISREG(status.st_mode) ? Share(descriptor, status, flags, share) : 0;
    if (problem != 0) {
        return problem;
    }
    const int state = fcntl(descriptor, F_GETFL);
    return state != -1 && fcntl(descriptor, F_SETFL, state & ~O_NONBLOCK) != -1 ? 0 : errno;
}

// Without memory of its own, since opening throws nothing. The system takes no longer path.
bool ParentExists(const char* name) {
    const char* const slash = std::strrchr(name, '/');
    char parent[PATH_MAX] = {};
    if (slash == nullptr || slash == name || slash - name >= PATH_MAX) {
        return true;
    }
    std::copy(name, slash, parent);
    struct stat status {};
    return stat(parent, &status) == 0;
}

bool Fail(CFileException* error, int cause, int systemError) {
    if (error != nullptr) {
        error->m_cause = cause;
        error->m_lOsError = systemError;
    }
    return false;
}

}  // namespace

CFile::~CFile() {
    if (m_Descriptor != -1) {
        kv::LeaveShare(m_Share);
        ::close(m_Descriptor);
    }
}

bool CFile::Open(const char* name, UINT flags, CFileException* error) {
    if (m_Descriptor != -1) {
        return Fail(error, CFileException::genericException, 0);
    }
    if (name == nullptr || *name == '\0') {
        return Fail(error, CFileException::badPath, ENOENT);
    }
    const int opened = Uninterrupted([&] { return ::open(name, SystemFlags(flags), 0666); });
    if (opened == -1) {
        const int problem = errno;
        const bool lost = problem == ENOENT && !ParentExists(name);
        return Fail(error, lost ? CFileException::badPath : CauseOf(problem), problem);
    }
    if (const int problem = Prepare(opened, flags, m_Share); problem != 0) {
        kv::LeaveShare(m_Share);
        ::close(opened);
        return Fail(error, CauseOf(problem), problem);
    }
    m_Descriptor = opened;
    return true;
}

void CFile::Close() {
    if (m_Descriptor == -1) {
        return;
    }
    kv::LeaveShare(m_Share);
    const int closing = std::exchange(m_Descriptor, -1);
    // Whatever the result, the descriptor is gone; an interrupted close has still closed.
    if (::close(closing) != 0 && errno != EINTR) {
        ThrowSystemError();
    }
}

UINT CFile::Read(void* bytes, UINT count) {
    auto* target = static_cast<char*>(bytes);
    UINT done = 0;
    while (done < count) {
        const UINT part = std::min(count - done, kMaxTransfer);
        const ssize_t got =
            Uninterrupted([&] { return ::read(m_Descriptor, target + done, part); });
        if (got < 0) {
            ThrowSystemError();
        }
        if (got == 0) {
            break;
        }
        done += static_cast<UINT>(got);
    }
    return done;
}

void CFile::Write(const void* bytes, UINT count) {
    const auto* source = static_cast<const char*>(bytes);
    UINT done = 0;
    while (done < count) {
        const UINT part = std::min(count - done, kMaxTransfer);
        const ssize_t put =
            Uninterrupted([&] { return ::write(m_Descriptor, source + done, part); });
        if (put < 0) {
            ThrowSystemError();
        }
        if (put == 0) {
            throw CFileException(CFileException::diskFull, 0);
        }
        done += static_cast<UINT>(put);
    }
}

std::uint64_t CFile::Seek(std::int64_t offset, UINT from) {
    if (from > end) {
        throw CFileException(CFileException::badSeek, EINVAL);
    }
    const int origins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    const off_t position = ::lseek(m_Descriptor, offset, origins[from]);
    if (position == -1) {
        ThrowSystemError();
    }
    return static_cast<std::uint64_t>(position);
}

std::uint64_t CFile::GetLength() const {
    struct stat status {};
    if (fstat(m_Descriptor, &status) != 0) {
        ThrowSystemError();
    }
    return static_cast<std::uint64_t>(status.st_size);
}

std::uint64_t CFile::GetPosition() const {
    const off_t position = ::lseek(m_Descriptor, 0, SEEK_CUR);
    if (position == -1) {
        ThrowSystemError();
    }
    return static_cast<std::uint64_t>(position);
}
