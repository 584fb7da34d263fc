#pragma once

#include <string>
#include <vector>

#include "export.h"

/// A byte string in code page 932, owned by value. The pointer it hands out stays the same until
/// the string is changed, moved or destroyed. A length that memory cannot hold throws
/// CMemoryException, a copy std::bad_alloc, and leaves the string as it was.
class KVDRAW_API CString {
  public:
    CString() = default;
    /// Null counts as the empty string, here and in assignment and appending.
    CString(const char* text);
    /// The first byteCount bytes, zeros among them included; below 1 gives the empty string.
    CString(const char* bytes, int byteCount);
    CString& operator=(const char* text);

    CString& operator+=(const char* text);
    CString& operator+=(char byte);
    CString& operator+=(const CString& other);
    void Append(const char* bytes, int byteCount);

    operator const char*() const { return m_Text.c_str(); }
    /// Bytes, not characters.
    int GetLength() const { return static_cast<int>(m_Text.size()); }
    bool IsEmpty() const { return m_Text.empty(); }
    void Empty() { m_Text.clear(); }
    /// Replaces the byte at index, which CInvalidArgException checks to lie within the length.
    void SetAt(int index, char byte);

    friend bool operator==(const CString& a, const CString& b) { return a.m_Text == b.m_Text; }
    friend bool operator==(const CString& a, const char* b) {
        return a.m_Text == (b != nullptr ? b : "");
    }

  private:
    std::string m_Text;
};

/// A growable list of strings. Access outside the list throws CInvalidArgException.
class KVDRAW_API CStringArray {
  public:
    /// The index of the new element. The text may be an element of this list.
    int Add(const CString& text);
    const CString& GetAt(int index) const;
    const CString& operator[](int index) const { return GetAt(index); }
    int GetSize() const { return static_cast<int>(m_Strings.size()); }
    void RemoveAll() { m_Strings.clear(); }

  private:
    std::vector<CString> m_Strings;
};
