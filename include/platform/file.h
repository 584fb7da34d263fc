#pragma once

#include <cstdint>

#include "exception.h"
#include "export.h"
#include "types.h"

namespace kv {

/// An open file's place among those of the process, in the object itself: opening takes no memory.
struct FileShare {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    unsigned int claims = 0;  ///< what it does and what it forbids; 0 outside the table
    int descriptor = -1;
    int process = 0;
    FileShare* previous = nullptr;
    FileShare* next = nullptr;
};

}  // namespace kv

/// A file of bytes, opened and closed by the object. Operations throw CFileException unless they
/// say otherwise. An application may derive its own files, in memory for instance: all that the
/// library calls is virtual. One object serves one thread at a time.
class KVDRAW_API CFile {
  public:
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,     ///< as shareExclusive
        shareExclusive = 0x0010,  ///< others may neither read nor write
        shareDenyWrite = 0x0020,  ///< others may read
        shareDenyRead = 0x0030,   ///< others may write
        shareDenyNone = 0x0040,   ///< others may read and write
        modeNoInherit = 0x0080,   ///< always so: no child process inherits a file
        modeCreate = 0x1000,  ///< makes the file; one that is there is emptied if opened to write
        modeNoTruncate = 0x2000,  ///< with modeCreate: does not empty it
        typeText = 0x4000,        ///< no effect: bytes are bytes
        typeBinary = 0x8000
    };
    enum SeekPosition : UINT { begin = 0, current = 1, end = 2 };

    CFile() = default;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    /// Closes; a failure then is not reported.
    virtual ~CFile();

    /// Opens the file of that path, which is bytes as given. False, with the cause in error when
    /// that is not null, on failure; nothing is thrown. Directories and pipes are refused
    /// (accessDenied), a missing directory on the way is badPath. False with genericException when
    /// this object is open already.
    ///
    /// The share mode says what others may do with a regular file until it is closed. An open that
    /// does what an earlier one forbids, or forbids what an earlier one does, is refused
    /// (sharingViolation) and leaves the file as it is. Within the process this holds exactly,
    /// whatever the paths, and for the files that a CDib is tied to as well. Between processes it
    /// holds among those that open by this library, where the file system has locks of open files
    /// (F_OFD_SETLK); two processes that open at the same instant may then both be refused. The
    /// locks are advisory: other programs are not kept out, but one that locks the whole file by
    /// fcntl keeps all opens out.
    virtual bool Open(const char* name, UINT flags, CFileException* error = nullptr);

    /// Closes the file if it is open. It is closed even when this throws.
    virtual void Close();

    /// Reads at most count bytes. The number delivered is smaller only at the end of the file.
    virtual UINT Read(void* bytes, UINT count);

    /// Writes all count bytes or throws; a failed write may have written a part.
    virtual void Write(const void* bytes, UINT count);

    /// Moves to offset bytes from a SeekPosition; beyond the end is allowed. The new position.
    virtual std::uint64_t Seek(std::int64_t offset, UINT from);
    void SeekToBegin() { Seek(0, begin); }

    /// The system's descriptor, -1 while the file is closed.
    int GetDescriptor() const { return m_Descriptor; }

    virtual std::uint64_t GetLength() const;
    virtual std::uint64_t GetPosition() const;

  private:
    int m_Descriptor = -1;
    kv::FileShare m_Share;
};
