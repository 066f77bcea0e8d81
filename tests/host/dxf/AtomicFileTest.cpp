#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Behind <filesystem>, whose paths would be Windows' own behind <windows.h>.
#include "AsciiWriter.h"
#include "AtomicFile.h"

using namespace dxf;

namespace
{
namespace fs = std::filesystem;

class AtomicFileTest : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string name = (fs::temp_directory_path() / "atomic-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
        target = folder / "drawing.dxf";
        std::ofstream(target) << "old";
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string contents() const
    {
        std::ifstream file(target, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::size_t filesIn(const fs::path& place) const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(place), fs::directory_iterator()));
    }

    fs::path folder, target;
};

/// The whole drawing that the child processes save.
std::string newDrawing()
{
    MemorySink sink;
    AsciiWriter writer(sink, TextEncoding());
    for (int i = 0; i < 100000; ++i)
        writer.real(40, i / 3.0);
    writer.finish();
    return sink.bytes();
}

void saveForever(const fs::path& target, const std::string& drawing)
{
    for (;;) {
        AtomicFile file(target.wstring());
        for (std::size_t i = 0; i < drawing.size(); i += 1 << 16)
            file.append(std::string_view(drawing).substr(i, 1 << 16));
        file.commit();
    }
}

/// A file system of 1 MB; without the right to mount one, a limit on the size of files instead.
class SmallDisk
{
public:
    explicit SmallDisk(const fs::path& place)
    {
        if (mount("tmpfs", place.c_str(), "tmpfs", 0, "size=1m") == 0) {
            _mounted = place;
            return;
        }
        getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit small{1 << 20, _before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        _handler = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~SmallDisk()
    {
        if (!_mounted.empty()) {
            umount2(_mounted.c_str(), MNT_DETACH);
            return;
        }
        setrlimit(RLIMIT_FSIZE, &_before);
        std::signal(SIGXFSZ, _handler);
    }

private:
    fs::path _mounted;
    rlimit _before{};
    void (*_handler)(int) = nullptr;
};
} // namespace

TEST_F(AtomicFileTest, CommitReplacesTheTarget)
{
    AtomicFile file(target.wstring());
    EXPECT_TRUE(file.append("new"));
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(file.commit(), FileStatus::done);
    EXPECT_EQ(contents(), "new");
    EXPECT_EQ(filesIn(folder), 1u);
}

TEST_F(AtomicFileTest, GivingUpLeavesTheOldFileAlone)
{
    {
        AtomicFile file(target.wstring());
        file.append("new");
        EXPECT_EQ(filesIn(folder), 2u);
    }
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(filesIn(folder), 1u);
}

TEST_F(AtomicFileTest, TargetThatCannotBeWrittenIsRefusedAtOnce)
{
    fs::permissions(target, fs::perms::owner_read);
    AtomicFile readOnly(target.wstring());
    EXPECT_FALSE(readOnly.append("new"));
    EXPECT_EQ(readOnly.commit(), FileStatus::accessDenied);
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(AtomicFile((folder / "none" / "a.dxf").wstring()).status(), FileStatus::notFound);
    EXPECT_EQ(AtomicFile(folder.wstring()).status(), FileStatus::accessDenied);
    EXPECT_EQ(filesIn(folder), 1u);
}

TEST_F(AtomicFileTest, FullDiskLeavesTheOldFileWhole)
{
    const fs::path disk = folder / "disk";
    fs::create_directory(disk);
    const SmallDisk small(disk);
    target = disk / "drawing.dxf";
    std::ofstream(target) << "old";
    AtomicFile file(target.wstring());
    bool isTaken = true;
    for (int i = 0; i < 64 && isTaken; ++i)
        isTaken = file.append(std::string(1 << 16, 'x'));
    EXPECT_FALSE(isTaken);
    EXPECT_EQ(file.commit(), FileStatus::diskFull);
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(filesIn(disk), 1u);
}

TEST_F(AtomicFileTest, KilledProcessLeavesTheOldOrTheNewFileWhole)
{
    const std::string drawing = newDrawing();
    std::mt19937 random(3);
    int countOfNew = 0;
    for (int i = 0; i < 100; ++i) {
        std::ofstream(target) << "old";
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) saveForever(target, drawing);
        usleep(random() % 12000);
        ASSERT_EQ(kill(child, SIGKILL), 0);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const std::string left = contents();
        ASSERT_TRUE(left == "old" || left == drawing) << left.size() << " bytes after kill " << i;
        countOfNew += left == drawing;
    }
    RecordProperty("new", countOfNew);
    RecordProperty("old", 100 - countOfNew);
}
