#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <CImgFile.h>
#include <unistd.h>

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

// One name for all runs of a process, gone with it.
class File {
  public:
    File() : m_Path("/dev/shm/kvdraw_fuzz_" + std::to_string(getpid()) + ".bmp") {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { std::remove(m_Path.c_str()); }

    const char* With(const std::uint8_t* data, std::size_t size) const {
        std::FILE* file = std::fopen(m_Path.c_str(), "wb");
        Require(file != nullptr && std::fwrite(data, 1, size, file) == size);
        std::fclose(file);
        return m_Path.c_str();
    }

  private:
    std::string m_Path;
};

}  // namespace

// A picture that loads is saved, and loads again as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const File file;
    CKVFrameBuffer fb;
    LONG keyFlag = 1;
    const char* path = file.With(data, size);
    if (CImgFile::LoadImg(path, &fb, &keyFlag) != 0) {
        Require(fb.IsBuffer() != 0);
        return 0;
    }
    Require(keyFlag == 0);
    CImgFile image;
    Require(image.SaveImage(&fb, path) == 0 && image.LoadImg() == 0);
    Require(image.GetImgByte() == fb.m_Size);
    Require(std::memcmp(image.GetImgBufPointer(), fb.m_BufferByte, fb.m_Size) == 0);
    return 0;
}
