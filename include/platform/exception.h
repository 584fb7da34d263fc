#pragma once

#include "export.h"
#include "types.h"

/// The exceptions of the platform layer. They are thrown by value and caught by reference; nobody
/// deletes them.
class KVDRAW_API CException {
  public:
    CException() = default;
    CException(const CException&) = default;
    CException& operator=(const CException&) = default;
    virtual ~CException();
};

/// An index or argument out of its range.
class KVDRAW_API CInvalidArgException : public CException {
  public:
    ~CInvalidArgException() override;
};

/// Memory could not be had.
class KVDRAW_API CMemoryException : public CException {
  public:
    ~CMemoryException() override;
};

/// A failed operation on a file.
class KVDRAW_API CFileException : public CException {
  public:
    /// The cause codes are fixed numbers: results of file operations pass them on.
    enum Cause {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6,
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14
    };

    explicit CFileException(int cause = none, LONG osError = 0)
        : m_cause(cause), m_lOsError(osError) {}
    ~CFileException() override;

    int m_cause;      ///< one of Cause
    LONG m_lOsError;  ///< the system's error number, 0 when there is none
};

[[noreturn]] KVDRAW_API void AfxThrowInvalidArgException();
[[noreturn]] KVDRAW_API void AfxThrowMemoryException();
