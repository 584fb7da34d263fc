// The effect record with names of its own: copied, told, given back.

#include "CBwDrawInfo.h"

#include <cstring>
#include <new>

#include <platform/string.h>

namespace {

const char* CopyName(const char* name) {
    if (name == nullptr) {
        return nullptr;
    }
    const std::size_t bytes = std::strlen(name) + 1;
    char* copy = new (std::nothrow) char[bytes];
    return copy != nullptr ? static_cast<char*>(std::memcpy(copy, name, bytes)) : nullptr;
}

}  // namespace

CBwDrawInfo::CBwDrawInfo() {
    m_Info.AntiScale = 16;
}

CBwDrawInfo::CBwDrawInfo(const CBwDrawInfo& other) : KVEffectAccess(other) {
    CopyFrom(other);
}

CBwDrawInfo& CBwDrawInfo::operator=(const CBwDrawInfo& other) {
    if (this != &other) {
        FreeNames();
        CopyFrom(other);
    }
    return *this;
}

CBwDrawInfo::~CBwDrawInfo() {
    FreeNames();
}

void CBwDrawInfo::CopyFrom(const CBwDrawInfo& other) {
    m_Info = other.m_Info;
    for (tagTEXTUREINFO* texture : {&m_Info.BodyText, &m_Info.EdgeText, &m_Info.ShadText}) {
        texture->File = CopyName(texture->File);
    }
}

void CBwDrawInfo::FreeNames() {
    for (tagTEXTUREINFO* texture : {&m_Info.BodyText, &m_Info.EdgeText, &m_Info.ShadText}) {
        delete[] texture->File;
        texture->File = nullptr;
    }
}

const char* CBwDrawInfo::ReadText(const tagTEXTUREINFO& texture, LONG* mode) {
    *mode = texture.Mode;
    return texture.File;
}

void CBwDrawInfo::ReadText(const tagTEXTUREINFO& texture, LONG* mode, CString& file) {
    file = ReadText(texture, mode);
}
