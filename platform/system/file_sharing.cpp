// The table of the files that this process has open, and the locks that tell other processes.

#include "platform/system/file_sharing.h"

#include <cerrno>
#include <mutex>

#include <fcntl.h>
#include <unistd.h>

namespace kv {
namespace {

// Chained through its entries: nothing is allocated, and nothing is destroyed before the last file.
struct Table {
    std::mutex mutex;
    FileShare* first = nullptr;
};

Table& TheTable() {
    static constinit Table table;
    return table;
}

// The claims that those given go not with: reading with barred readers, writing with barred
// writers.
unsigned int Opposed(unsigned int claims) {
    return (claims & (kReads | kWrites)) << 2 | claims >> 2;
}

// Other processes see a claim as a lock on one byte of the claim's area. The areas lie behind all
// that files hold. The locks belong to the open file, which child processes have in common with us.
constexpr off_t kFirstArea = off_t{1} << 62;
constexpr off_t kAreaBytes = 1024;

template <typename Call>
bool ForEachArea(unsigned int claims, const Call& call) {
    for (int area = 0; area < 4; ++area) {
        if ((claims >> area & 1) != 0 && !call(kFirstArea + area * kAreaBytes)) {
            return false;
        }
    }
    return true;
}

struct flock LockOf(short type, off_t first, off_t bytes) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = first;
    lock.l_len = bytes;
    return lock;
}

// Whether no other open file has one of the claims, as far as there are locks.
bool NobodyClaims(int descriptor, unsigned int claims) {
    return ForEachArea(claims, [&](off_t area) {
        struct flock lock = LockOf(F_WRLCK, area, kAreaBytes);
        return fcntl(descriptor, F_OFD_GETLK, &lock) != 0 || lock.l_type == F_UNLCK;
    });
}

// Descriptors that read share a byte. One that only writes may have no lock but an exclusive one
// and takes a byte that nobody has.
bool TakeClaims(int descriptor, unsigned int claims) {
    const short type = (claims & kReads) != 0 ? F_RDLCK : F_WRLCK;
    return ForEachArea(claims, [&](off_t area) {
        for (off_t byte = area; byte < area + kAreaBytes; ++byte) {
            struct flock lock = LockOf(type, byte, 1);
            if (fcntl(descriptor, F_OFD_SETLK, &lock) == 0 ||
                (errno != EAGAIN && errno != EACCES)) {
                return true;  // other failures mean a file system without such locks
            }
        }
        return false;
    });
}

void DropClaims(int descriptor) {
    struct flock lock = LockOf(F_UNLCK, kFirstArea, 4 * kAreaBytes);
    fcntl(descriptor, F_OFD_SETLK, &lock);
}

// Looking before taking keeps an open that will be refused from being in the way of a third one;
// looking again finds those who took theirs in between.
bool Lock(int descriptor, unsigned int claims) {
    if (!NobodyClaims(descriptor, Opposed(claims))) {
        return false;
    }
    if (TakeClaims(descriptor, claims) && NobodyClaims(descriptor, Opposed(claims))) {
        return true;
    }
    DropClaims(descriptor);
    return false;
}

}  // namespace

void LeaveShare(FileShare& share) {
    if (share.claims == 0) {
        return;
    }
    Table& table = TheTable();
    const std::lock_guard hold(table.mutex);
    // Left to the close they would last as long as a child between its fork and its exec, which has
    // copies of all descriptors. A child that closes its copy leaves them to the parent.
    if (share.process == getpid()) {
        DropClaims(share.descriptor);
    }
    (share.previous != nullptr ? share.previous->next : table.first) = share.next;
    if (share.next != nullptr) {
        share.next->previous = share.previous;
    }
    share = {};
}

bool EnterShare(FileShare& share, unsigned int claims) {
    Table& table = TheTable();
    const std::lock_guard hold(table.mutex);
    for (const FileShare* other = table.first; other != nullptr; other = other->next) {
        const bool same = other->device == share.device && other->inode == share.inode;
        if (same && (other->claims & Opposed(claims)) != 0) {
            return false;
        }
    }
    if (!Lock(share.descriptor, claims)) {
        return false;
    }
    share.claims = claims;
    share.process = getpid();
    share.next = table.first;
    if (share.next != nullptr) {
        share.next->previous = &share;
    }
    table.first = &share;
    return true;
}

}  // namespace kv
