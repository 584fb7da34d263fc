// Bitmaps made from device-independent ones, and the way back.

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

#include "platform/bitmap/colour_bitmap.h"
#include "platform/bitmap/rows.h"
#include "platform/bitmap/run_length.h"
#include "platform/device/device.h"
#include "platform/device/picture.h"

using kv::dib::ColourBitmap;
using kv::dib::Format;

namespace {

HBITMAP MakeHandle(std::shared_ptr<ColourBitmap> bitmap) try {
    auto handle = std::make_unique<CBitmap>();
    handle->m_Picture = kv::device::MakeColourPicture(std::move(bitmap));
    return handle->IsNull() ? nullptr : handle.release();
} catch (const std::bad_alloc&) {
    return nullptr;
}

// The rows that a device bitmap for pictures of this format has.
Format DeviceFormat(const Format& source) {
    Format rows = kv::dib::TrueColourFormat(source.width, source.height);
    if (source.bits <= 8) {
        rows.bits = 8;
        rows.stride = kv::dib::RowBytes(source.width, 8);
        rows.colours = source.colours;
        rows.colourCount = source.colourCount;
    }
    rows.topDown = source.topDown;
    return rows;
}

void FillBitmap(ColourBitmap& bitmap, const Format& source, std::span<const BYTE> pixels) {
    const auto width = static_cast<std::size_t>(source.width);
    kv::dib::RunLengthReader runs(pixels, source.bits);
    for (LONG stored = 0; stored < source.height; ++stored) {
        BYTE* row = bitmap.Bits() + bitmap.Rows().stride * static_cast<std::size_t>(stored);
        const std::size_t offset = source.stride * static_cast<std::size_t>(stored);
        if (source.IsRunLength()) {
            runs.ReadRow({row, width});
        } else if (source.bits <= 8) {
            kv::dib::UnpackIndices(source.bits, &pixels[offset], width, row);
        } else {
            kv::dib::UnpackRow(source, &pixels[offset], 0, width, reinterpret_cast<DWORD*>(row));
        }
    }
}

// Plain rows in the order that the header asks for; bytes that pad a row become 0.
void WritePlain(const ColourBitmap& bitmap, const Format& wanted, std::span<BYTE> pixels) {
    const auto width = static_cast<std::size_t>(wanted.width);
    for (LONG row = 0; row < wanted.height; ++row) {
        BYTE* target = &pixels[wanted.stride * static_cast<std::size_t>(wanted.StoredRow(row))];
        std::memset(target + wanted.stride - 4, 0, 4);
        kv::dib::PackIndices(wanted.bits, bitmap.Row(row), width, target);
    }
}

std::uint64_t WriteRuns(const ColourBitmap& bitmap, unsigned int bits, std::span<BYTE> pixels) {
    const auto width = static_cast<std::size_t>(bitmap.Rows().width);
    kv::dib::RunLengthWriter writer(bits, pixels);
    for (LONG row = bitmap.Rows().height; row-- > 0;) {
        writer.WriteRow({bitmap.Row(row), width}, row == 0);
    }
    return writer.Size();
}

void WriteColours(const ColourBitmap& bitmap, std::span<BYTE> table) {
    const Format& rows = bitmap.Rows();
    for (std::size_t i = 0; i < rows.colourCount && i < table.size() / 4; ++i) {
        std::memcpy(&table[i * 4], &rows.colours[i], 3);
    }
}

int WriteDIBits(const ColourBitmap& bitmap, std::span<BYTE> pixels, std::span<BYTE> info) {
    const auto wanted = kv::dib::ParseFormat(info);
    if (!wanted || wanted->bits != bitmap.SourceBits() || bitmap.Rows().bits != 8 ||
        wanted->bits < 4 || wanted->width != bitmap.Rows().width ||
        wanted->height != bitmap.Rows().height) {
        return 0;
    }
    std::uint64_t size = wanted->PlainBytes();
    if (wanted->IsRunLength()) {
        size = WriteRuns(bitmap, wanted->bits, pixels);
    } else if (size <= pixels.size()) {
        WritePlain(bitmap, *wanted, pixels);
    }
    if (size > std::numeric_limits<DWORD>::max() || (!pixels.empty() && size > pixels.size())) {
        return 0;
    }
    tagBITMAPINFOHEADER header;
    std::memcpy(&header, info.data(), sizeof header);
    header.biSizeImage = static_cast<DWORD>(size);
    std::memcpy(info.data(), &header, sizeof header);
    WriteColours(bitmap, info.subspan(std::min<std::size_t>(header.biSize, info.size())));
    return wanted->height;
}

}  // namespace

HBITMAP CreateDIBSection(HDC /*context*/, std::span<const BYTE> info, UINT usage, void** bits) {
    const auto format = kv::dib::ParseFormat(info);
    if (!format || format->IsRunLength() || usage != DIB_RGB_COLORS) {
        return nullptr;
    }
    const HBITMAP section = MakeHandle(ColourBitmap::Create(*format, format->bits));
    if (section != nullptr) {
        *bits = kv::device::ColoursOf(*section)->Bits();
    }
    return section;
}

HBITMAP CreateDIBitmap(HDC context, DWORD init, std::span<const BYTE> pixels,
                       std::span<const BYTE> info, UINT usage) {
    const auto source = kv::dib::ParseFormat(info);
    if (context == nullptr || init != CBM_INIT || usage != DIB_RGB_COLORS || !source ||
        !kv::dib::AllThere(*source, pixels)) {
        return nullptr;
    }
    auto bitmap = ColourBitmap::Create(DeviceFormat(*source), source->bits);
    if (bitmap != nullptr) {
        FillBitmap(*bitmap, *source, pixels);
    }
    return MakeHandle(std::move(bitmap));
}

int GetDIBits(HDC context, HBITMAP bitmap, std::span<BYTE> pixels, std::span<BYTE> info,
              UINT usage) try {
    const ColourBitmap* const colours =
        bitmap != nullptr ? kv::device::ColoursOf(*bitmap) : nullptr;
    if (context == nullptr || colours == nullptr || usage != DIB_RGB_COLORS) {
        return 0;
    }
    return WriteDIBits(*colours, pixels, info);
} catch (const std::bad_alloc&) {
    return 0;
}
