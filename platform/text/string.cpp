// Strings and lists of strings.

#include "platform/string.h"

#include <climits>
#include <cstring>
#include <new>
#include <stdexcept>

#include <platform/exception.h>

namespace {

const char* OrEmpty(const char* text) {
    return text != nullptr ? text : "";
}

// A length must fit GetLength's int.
void AppendBytes(std::string& to, const char* bytes, std::size_t count) {
    if (count > static_cast<std::size_t>(INT_MAX) - to.size()) {
        AfxThrowMemoryException();
    }
    try {
        to.append(bytes, count);
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

template <typename Strings>
auto& Element(Strings& strings, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= strings.size()) {
        AfxThrowInvalidArgException();
    }
    return strings[static_cast<std::size_t>(index)];
}

}  // namespace

CString::CString(const char* text) {
    *this += text;
}

CString::CString(const char* bytes, int byteCount) {
    Append(bytes, byteCount);
}

CString& CString::operator=(const char* text) {
    // The text may point into this very string, so it is copied first.
    CString copy(text);
    m_Text.swap(copy.m_Text);
    return *this;
}

CString& CString::operator+=(const char* text) {
    const char* bytes = OrEmpty(text);
    AppendBytes(m_Text, bytes, std::strlen(bytes));
    return *this;
}

CString& CString::operator+=(char byte) {
    AppendBytes(m_Text, &byte, 1);
    return *this;
}

CString& CString::operator+=(const CString& other) {
    AppendBytes(m_Text, other.m_Text.data(), other.m_Text.size());
    return *this;
}

void CString::Append(const char* bytes, int byteCount) {
    if (bytes != nullptr && byteCount > 0) {
        AppendBytes(m_Text, bytes, static_cast<std::size_t>(byteCount));
    }
}

void CString::SetAt(int index, char byte) {
    Element(m_Text, index) = byte;
}

int CStringArray::Add(const CString& text) {
    try {
        m_Strings.push_back(text);
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
    return GetSize() - 1;
}

const CString& CStringArray::GetAt(int index) const {
    return Element(m_Strings, index);
}
