#pragma once

#include <cstdint>

namespace kv {

/// What an open does with its file, and what it forbids all others meanwhile.
enum FileClaim : unsigned int { kReads = 1, kWrites = 2, kBarsReaders = 4, kBarsWriters = 8 };

/// What tells files apart, whatever their paths.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    bool operator==(const FileIdentity&) const = default;
};

/// An open's place in the table of this process's open files. Its destructor gives the place up and
/// must run before the descriptor is closed.
class FileShare {
  public:
    FileShare() = default;
    FileShare(const FileShare&) = delete;
    FileShare& operator=(const FileShare&) = delete;
    ~FileShare();

    /// Enters the open, once for each object. claims are FileClaim bits: kReads where the
    /// descriptor may read, kWrites where it may write, and what is barred. False when that meets
    /// the bar of another open or bars what another open does, in this process or, as far as the
    /// file system has locks, in another one.
    bool Enter(int descriptor, const FileIdentity& file, unsigned int claims);

  private:
    FileIdentity m_File;
    unsigned int m_Claims = 0;  // 0 outside the table
    int m_Descriptor = -1;
    int m_Process = 0;
    FileShare* m_Previous = nullptr;
    FileShare* m_Next = nullptr;
};

}  // namespace kv
