#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

/// A fresh folder, removed with all that is in it.
class TempFolder {
  public:
    TempFolder() : m_Path(testing::TempDir() + "kvdraw_XXXXXX") {
        EXPECT_NE(mkdtemp(m_Path.data()), nullptr);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() { std::filesystem::remove_all(m_Path); }

    std::string operator/(const std::string& name) const { return m_Path + "/" + name; }

  private:
    std::string m_Path;
};
