// The exceptions that the layer throws.

#include "platform/exception.h"

// The destructors stand here so that the library holds the one type record of each class, which
// catching across the library's border rests on.
CException::~CException() = default;
CInvalidArgException::~CInvalidArgException() = default;
CMemoryException::~CMemoryException() = default;
CFileException::~CFileException() = default;

void AfxThrowInvalidArgException() {
    throw CInvalidArgException();
}

void AfxThrowMemoryException() {
    throw CMemoryException();
}
