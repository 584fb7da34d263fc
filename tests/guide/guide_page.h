#pragma once

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <KVDraw.h>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

/// Runs a block of the guide in a folder of its own, which holds the files that the guide names.
class GuidePage : public testing::Test {
  protected:
    GuidePage();
    ~GuidePage() override;

    /// What blocks find declared.
    static CKVFrameBuffer SomePicture();
    static CDrawText SomeTitle();
    static CDrawGraph SomeShape();

    /// Fails when no pixel of the picture shows.
    static void ExpectDrawn(const CKVFrameBuffer& picture);

  private:
    TempFolder m_Folder;
    std::filesystem::path m_Before = std::filesystem::current_path();
};
