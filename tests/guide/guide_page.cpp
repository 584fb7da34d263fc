#include "tests/guide/guide_page.h"

GuidePage::GuidePage() {
    const CKVFrameBuffer picture = SomePicture();
    for (const char* const name : {"logo.tga", "stone.tga", "gold.tga", "dust.tga"}) {
        EXPECT_EQ(CImgFile().SaveImage(&picture, (m_Folder / name).c_str()), 0);
    }
    std::filesystem::current_path(m_Folder / "");
}

GuidePage::~GuidePage() {
    std::filesystem::current_path(m_Before);
}

CKVFrameBuffer GuidePage::SomePicture() {
    CKVFrameBuffer picture(320, 200, 1);
    SomeShape().DrawFrame(&picture);
    return picture;
}

CDrawText GuidePage::SomeTitle() {
    CDrawText title;
    title.SetString(KVFromUtf8("題 Title"));
    return title;
}

CDrawGraph GuidePage::SomeShape() {
    CDrawGraph shape;
    const tagRECT box{20, 20, 300, 180};
    shape.SetEllipse(&box);
    shape.SetFillMode(1);
    return shape;
}

void GuidePage::ExpectDrawn(const CKVFrameBuffer& picture) {
    const DWORD* const first = picture.GetBufferDWord();
    EXPECT_TRUE(std::any_of(first, first + picture.GetSize() / 4,
                            [](DWORD pixel) { return pixel >> 24 != 0; }));
}
