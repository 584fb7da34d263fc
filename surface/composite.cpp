// Copies from surface to surface: plain, by key, through a coverage.

#include <algorithm>
#include <cstring>
#include <optional>

#include <CKVFrameBuffer.h>

#include "surface/clip.h"
#include "surface/holds.h"
#include "surface/pixel_blend.h"
#include "surface/pixel_rows.h"

namespace {

// The holds of a copy: shared on the source first, exclusive on the destination second. A copy of a
// surface onto itself takes the exclusive hold alone, which no reader or writer can get between.
class CopyHold {
  public:
    CopyHold(const CKVFrameBuffer& source, CKVFrameBuffer& target) {
        if (&source != &target) {
            m_Source.emplace(source);
        }
        m_Target.emplace(target);
    }

  private:
    std::optional<kv::SharedHold> m_Source;
    std::optional<kv::ExclusiveHold> m_Target;
};

struct Rows {
    const DWORD* src;
    DWORD* dst;
    std::size_t count;
};

// Calls work(rows, y) for each row of the area from the top; y counts from 0.
template <typename Work>
void ForEachRow(const CKVFrameBuffer& source, CKVFrameBuffer& target, const kv::CopyArea& area,
                const Work& work) {
    const auto index = [](const CKVFrameBuffer& surface, LONG x, LONG y) {
        return static_cast<std::size_t>(y) * surface.GetWidth() + static_cast<std::size_t>(x);
    };
    const CBox& box = area.target;
    const auto count = static_cast<std::size_t>(box.width);
    for (LONG y = 0; y < box.height; ++y) {
        work(Rows{source.m_BufferDWord + index(source, area.sx, area.sy + y),
                  target.m_BufferDWord + index(target, box.x, box.y + y), count},
             y);
    }
}

// A row that starts inside its own source, to the right of it, reads pixels that it has written
// just before: those go one by one. In every other case a pixel is read before it is written.
bool ReadsOwnResult(const Rows& rows) {
    return rows.dst > rows.src && rows.dst < rows.src + rows.count;
}

template <typename Blend>
void OneByOne(const Rows& rows, const Blend& blend) {
    for (std::size_t i = 0; i < rows.count; ++i) {
        rows.dst[i] = blend(rows.dst[i], rows.src[i], i);
    }
}

void ReplaceRow(const Rows& rows) {
    if (ReadsOwnResult(rows)) {
        OneByOne(rows, [](DWORD, DWORD src, std::size_t) { return src; });
    } else {
        std::memmove(rows.dst, rows.src, rows.count * sizeof(DWORD));
    }
}

void BlendRow(const Rows& rows) {
    if (ReadsOwnResult(rows)) {
        OneByOne(rows, [](DWORD dst, DWORD src, std::size_t) { return kv::BlendByKey(dst, src); });
    } else {
        kv::BlendRowByKey(rows.dst, rows.src, rows.count);
    }
}

void MaskRow(const Rows& rows, const BYTE* mask) {
    if (ReadsOwnResult(rows)) {
        OneByOne(rows, [mask](DWORD dst, DWORD src, std::size_t i) {
            return kv::BlendByMask(dst, src, mask[i]);
        });
    } else {
        kv::BlendRowByMask(rows.dst, rows.src, mask, rows.count);
    }
}

// Where there is no mask its coverage is 0.
void UnmaskedRow(Rows rows) {
    static constexpr BYTE kNoCoverage[1024] = {};
    while (rows.count > 0) {
        const std::size_t step = std::min(rows.count, sizeof kNoCoverage);
        MaskRow({rows.src, rows.dst, step}, kNoCoverage);
        rows = {rows.src + step, rows.dst + step, rows.count - step};
    }
}

}  // namespace

int CKVFrameBuffer::FbCopy(const CKVFrameBuffer* src, LONG sx, LONG sy, LONG w, LONG h, LONG dx,
                           LONG dy, LONG mode, CBox* box) {
    if (src == nullptr) {
        return -1;
    }
    const CopyHold hold(*src, *this);
    const auto area = kv::ClipCopy(src->GetWH(), GetWH(), sx, sy, w, h, dx, dy);
    if (!area) {
        return -1;
    }
    ForEachRow(*src, *this, *area, [mode](const Rows& rows, LONG) {
        if (mode < 1) {
            ReplaceRow(rows);
        } else {
            BlendRow(rows);
        }
    });
    if (box != nullptr) {
        *box = area->target;
    }
    return 0;
}

int CKVFrameBuffer::FbCopyMask(const CKVFrameBuffer* src, const CKVGrayBitmap* mask, LONG sx,
                               LONG sy, LONG w, LONG h, LONG dx, LONG dy, CBox* box) {
    if (src == nullptr || mask == nullptr) {
        return -1;
    }
    const CopyHold hold(*src, *this);
    const auto area = kv::ClipCopy(src->GetWH(), GetWH(), sx, sy, w, h, dx, dy);
    if (!area) {
        return -1;
    }
    const auto masked =
        static_cast<std::size_t>(std::clamp(mask->Width - area->sx, 0, area->target.width));
    ForEachRow(*src, *this, *area, [&](const Rows& rows, LONG y) {
        const LONG row = area->sy + y;
        const std::size_t count = row < mask->Height ? masked : 0;
        if (count > 0) {
            const std::size_t offset = static_cast<std::size_t>(row) * mask->Pitch;
            MaskRow({rows.src, rows.dst, count},
                    mask->Bits + offset + static_cast<std::size_t>(area->sx));
        }
        UnmaskedRow({rows.src + count, rows.dst + count, rows.count - count});
    });
    if (box != nullptr) {
        *box = area->target;
    }
    return 0;
}
