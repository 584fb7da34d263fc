#include <cstdlib>
#include <string>
#include <vector>

#include <CDib.h>
#include <sys/mman.h>
#include <unistd.h>

#include "tests/support/memory_file.h"

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

// The picture shown twice: as it stands, and a part of it mirrored.
std::vector<BYTE> Shown(CDib& dib) {
    CBitmap bitmap;
    CDC dc;
    Require(bitmap.CreateBitmap(40, 30, 1, 32, nullptr));
    dc.SelectObject(bitmap);
    Require(dib.Draw(&dc, CPoint(0, 0), CSize(20, 30)) == 1);
    const CSize size = dib.GetDimensions();
    dib.Draw(&dc, CRect(39, 0, 19, 30), CRect(-1, 1, size.cx, size.cy));
    std::vector<BYTE> pixels(std::size_t{40} * 30 * 4);
    Require(bitmap.GetBitmapBits(static_cast<DWORD>(pixels.size()), pixels.data()) ==
            pixels.size());
    return pixels;
}

// Re-encoding both ways shows the same. Large pictures only cost time; they are left out.
void Recode(CDib& dib) {
    const std::int64_t pixels = std::int64_t{dib.GetWidth()} * dib.GetHeight();
    if (pixels > 1 << 15) {
        return;
    }
    CDC dc;
    const std::vector<BYTE> shown = Shown(dib);
    if (dib.Compress(&dc, 1) == 1) {
        Require(Shown(dib) == shown);
    }
    if (dib.Compress(&dc, 0) == 1) {
        Require(Shown(dib) == shown);
    }
}

void Store(CDib& dib) {
    MemoryFile file;
    CDib back;
    Require(dib.Write(&file) == 1);
    back.Read(&file);  // masks and long headers are lost
}

// A file of the process's own, in memory.
class MappedFile {
  public:
    MappedFile(const std::uint8_t* data, std::size_t size)
        : m_Descriptor(memfd_create("fuzz", 0)),
          m_Path("/proc/self/fd/" + std::to_string(m_Descriptor)) {
        Require(write(m_Descriptor, data, size) == static_cast<ssize_t>(size));
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile() { close(m_Descriptor); }
    const char* Path() const { return m_Path.c_str(); }

  private:
    int m_Descriptor;
    std::string m_Path;
};

}  // namespace

// The input read and mapped, and what can follow.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CDib dib;
    MemoryFile file(std::vector<BYTE>(data, data + size));
    if (dib.Read(&file) == 1) {
        Store(dib);
        Recode(dib);
    }
    const MappedFile mapped(data, size);
    if (dib.AttachMapFile(mapped.Path(), 1) == 1) {
        Store(dib);
        Recode(dib);
    }
    return 0;
}
