#include <atomic>
#include <thread>

#include <CImgFile.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/dib/dib_support.h"

namespace {

// An open, what it does, and what it lets others do.
struct Mode {
    enum Way { kFile, kAttach, kCopy, kSave } way;
    UINT flags;  // of a CFile; of the others whether readers are let in
    bool reads, writes, lets_read, lets_write;
};

std::vector<Mode> AllModes() {
    std::vector<Mode> modes = {{Mode::kAttach, 0, true, false, false, false},
                               {Mode::kAttach, 1, true, false, true, false},
                               {Mode::kCopy, 0, true, true, false, false},
                               {Mode::kSave, 0, false, true, false, false}};
    for (const auto& [share, read, write] : {std::tuple{CFile::shareCompat, false, false},
                                             {CFile::shareExclusive, false, false},
                                             {CFile::shareDenyWrite, true, false},
                                             {CFile::shareDenyRead, false, true},
                                             {CFile::shareDenyNone, true, true}}) {
        const UINT make = share | CFile::modeCreate;  // empties the file, if it may
        modes.push_back({Mode::kFile, share | CFile::modeRead, true, false, read, write});
        modes.push_back({Mode::kFile, make | CFile::modeWrite, false, true, read, write});
        modes.push_back({Mode::kFile, make | CFile::modeReadWrite, true, true, read, write});
    }
    return modes;
}

bool GoTogether(const Mode& a, const Mode& b) {
    const auto lets = [](const Mode& one, const Mode& other) {
        return (one.lets_read || !other.reads) && (one.lets_write || !other.writes);
    };
    return lets(a, b) && lets(b, a);
}

// Keeps what it opens, but for a save.
struct Opener {
    bool Open(const Mode& mode, const std::string& path) {
        CKVFrameBuffer picture;
        picture.CreateFrameBuffer(30, 20, 1);
        switch (mode.way) {
            case Mode::kFile:
                return file.Open(path.c_str(), mode.flags, &error);
            case Mode::kAttach:
                return dib.AttachMapFile(path.c_str(), static_cast<int>(mode.flags)) == 1;
            case Mode::kCopy:
                dib.Create(3, 3, 24, 0);
                return dib.CopyToMapFile(path.c_str()) == 1;
            default:
                return CImgFile().SaveImage(&picture, path.c_str()) == 0;
        }
    }

    CFile file;
    CFileException error;
    CDib dib;
};

// Opens in a process of its own, which has the file open until this goes.
class OtherProcess {
  public:
    OtherProcess(const Mode& mode, const std::string& path) {
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, m_Ends), 0);
        m_Child = fork();
        if (m_Child == 0) {
            close(m_Ends[0]);
            Opener opener;
            char told = opener.Open(mode, path) ? 1 : 0;
            _exit(write(m_Ends[1], &told, 1) == 1 && read(m_Ends[1], &told, 1) == 0 ? 0 : 1);
        }
        close(m_Ends[1]);
        char told = 0;
        EXPECT_TRUE(read(m_Ends[0], &told, 1) == 1 && told == 1);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess() {
        close(m_Ends[0]);
        int state = -1;
        EXPECT_EQ(waitpid(m_Child, &state, 0), m_Child);
        EXPECT_EQ(state, 0);
    }

  private:
    int m_Ends[2] = {-1, -1};
    pid_t m_Child = -1;
};

class FileSharing : public dib::Folder {
  protected:
    FileSharing() {
        CDib dib(9, 9, 24, 0);
        dib::Fill(dib, 1);
        m_Picture = dib::Saved(dib);
        std::filesystem::create_hard_link(Written("a.bmp", m_Picture), m_Link);
    }

    void Restore() const {
        if (Read(m_Path) != m_Picture) {
            Written("a.bmp", m_Picture);
        }
    }

    void TryAllBeside(const Mode& first, const char* where) {
        for (const Mode& second : AllModes()) {
            Restore();
            Opener opener;
            const bool granted = opener.Open(second, m_Link);
            EXPECT_EQ(granted, GoTogether(first, second))
                << where << ' ' << first.way << std::hex << ' ' << first.flags << ", " << second.way
                << ' ' << second.flags;
            EXPECT_TRUE(granted || Read(m_Path) == m_Picture) << "a refused open touched the file";
            if (!granted && second.way == Mode::kFile) {
                EXPECT_EQ(opener.error.m_cause, CFileException::sharingViolation);
            }
        }
    }

    dib::Bytes m_Picture;
    const std::string m_Path = Path("a.bmp");
    const std::string m_Link = Path("b.bmp");
};

TEST_F(FileSharing, HoldsForAllPairs) {
    for (const Mode& first : AllModes()) {
        if (first.way == Mode::kSave) {
            continue;  // over at once
        }
        Restore();
        {
            Opener opener;
            ASSERT_TRUE(opener.Open(first, m_Path)) << "something is left of the one before";
            TryAllBeside(first, "here");
        }
        Restore();
        const OtherProcess other(first, m_Path);
        TryAllBeside(first, "elsewhere");
    }
}

// The child forgets the open, so that only the parent's locks are left to refuse it.
TEST_F(FileSharing, StaysWithTheParentOfAChildThatCloses) {
    CFile file;
    ASSERT_TRUE(file.Open(m_Path.c_str(), CFile::shareExclusive | CFile::modeRead));
    const pid_t child = fork();
    if (child == 0) {
        file.Close();
        _exit(CFile().Open(m_Link.c_str(), CFile::shareDenyNone | CFile::modeRead) ? 1 : 0);
    }
    int state = -1;
    EXPECT_EQ(waitpid(child, &state, 0), child);
    EXPECT_EQ(state, 0);
}

// Neither readers among themselves nor writers that are refused get in a reader's way, and of those
// who want a file for themselves one at a time has it.
TEST_F(FileSharing, HoldsInManyThreads) {
    const Mode readers[] = {{Mode::kFile, CFile::shareDenyNone, true, false, true, true},
                            {Mode::kFile, CFile::shareDenyWrite, true, false, true, false},
                            {Mode::kAttach, 1, true, false, true, false}};
    const Mode owner{Mode::kFile, CFile::modeCreate | CFile::modeReadWrite, true, true, false,
                     false};
    CFile reader;
    ASSERT_TRUE(reader.Open(m_Path.c_str(), readers[1].flags));
    const std::string wanted = Path("wanted");
    std::atomic<int> wrong = 0;
    std::atomic<int> had = 0;
    std::atomic<int> owners = 0;
    std::vector<std::jthread> threads;
    threads.reserve(4);
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int i = 0; i < 300; ++i) {
                wrong += Opener().Open(readers[i % 3], m_Path) ? 0 : 1;
                wrong += Opener().Open(owner, m_Path) ? 1 : 0;
                Opener opener;
                if (opener.Open(owner, wanted)) {
                    wrong += owners++ == 0 ? 0 : 1;
                    ++had;
                    --owners;
                }
            }
        });
    }
    threads.clear();
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(had, 0);
    EXPECT_EQ(Read(m_Path), m_Picture);
}

}  // namespace
