#pragma once

#include "platform/module.h"

/// Records of the outside resize function.
struct KVResizeSize {
    int width;
    int height;
};

struct KVResizeRect {
    int x;
    int y;
    int width;
    int height;
};

/// Resamples pictures of four bytes a pixel. Steps are bytes from row to row, the factors are
/// target size / source size, interpolation is 4 (cubic) or 8 (averaging). 0 done.
using KVResizeFunction = int (*)(const BYTE* source, KVResizeSize sourceSize, int sourceStep,
                                 KVResizeRect sourceRegion, BYTE* target, int targetStep,
                                 KVResizeSize targetRegion, double xFactor, double yFactor,
                                 int interpolation);

/// The library's application object. There is one; when the library is loaded it looks for a module
/// with an outside resize function, which CKVFrameBuffer::SizeChange then uses, and lets go of it
/// when the library is unloaded. Nothing is searched beyond that, and nothing changes in between.
class KVDRAW_API CKVDrawWApp : public CWinApp {
  public:
    HMODULE m_IppModule = nullptr;           ///< "ippi-7.0.dll", or null
    KVResizeFunction m_IppResize = nullptr;  ///< its "ippiResize_8u_C4R"; null: own resampler

    constexpr CKVDrawWApp() = default;

    /// Binds the function. Always 1: the library does without it.
    int InitInstance() override;

    /// Lets go of the module. Returns what the base returns.
    int ExitInstance() override;

    /// The library's own object.
    static CKVDrawWApp& Instance();
};
