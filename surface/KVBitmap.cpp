// The store of the mask and the coverage bitmap.

#include "KVBitmap.h"

#include <cstring>
#include <new>

#include <CKVGrayBitmap.h>
#include <CKVMonoBitmap.h>

#include "surface/store_result.h"

KVBitmap::KVBitmap(const KVBitmap& other) {
    *this = other;
}

KVBitmap& KVBitmap::operator=(const KVBitmap& other) {
    if (this == &other) {
        return *this;
    }
    Delete();
    if (other.Bits != nullptr &&
        CreateRows(other.Width, other.Height, other.Pitch) == kv::kStoreDone) {
        std::memcpy(Bits, other.Bits, Size);
    }
    return *this;
}

KVBitmap::~KVBitmap() {
    Delete();
}

int KVBitmap::CreateRows(LONG width, LONG height, std::uint64_t pitch) {
    if (Base != nullptr) {
        return kv::kStoreExists;
    }
    if (width < 1 || height < 1) {
        return kv::kStoreNoSize;
    }
    const std::uint64_t size = pitch * static_cast<std::uint64_t>(height);
    if (size > kv::kMaxStoreBytes) {
        return kv::kStoreRefused;
    }
    BYTE* base = new (std::nothrow) BYTE[size]();
    if (base == nullptr) {
        return kv::kStoreRefused;
    }
    Base = Bits = base;
    Width = width;
    Height = height;
    Pitch = static_cast<DWORD>(pitch);
    Size = static_cast<DWORD>(size);
    return kv::kStoreDone;
}

int KVBitmap::Delete() {
    if (Base == nullptr) {
        return kv::kStoreMissing;
    }
    delete[] Base;
    Base = Bits = nullptr;
    Width = Height = 0;
    Pitch = Size = 0;
    return kv::kStoreDone;
}

int CKVMonoBitmap::Create(LONG width, LONG height) {
    return CreateRows(width, height, (static_cast<std::uint64_t>(width) + 15) / 16 * 2);
}

int CKVGrayBitmap::Create(LONG width, LONG height) {
    return CreateRows(width, height, (static_cast<std::uint64_t>(width) + 1) / 2 * 2);
}
