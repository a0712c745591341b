#include "boardfile/boardFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <random>

#include "harness/wholeAppend.h"

namespace quintline {
namespace {

// The file a save writes: a symbolic link's target (created when missing),
// else the path itself.
std::filesystem::path saveTarget(const std::string& path) {
    std::filesystem::path target = path;
    std::error_code error;
    // As many links as the system itself follows, against a loop.
    for (int hop = 0; hop < 40 && std::filesystem::is_symlink(target, error); ++hop) {
        const std::filesystem::path next = std::filesystem::read_symlink(target, error);
        if (error) break;
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target;
}

// A name beside `target` that no file holds yet, created with `mode`; -1 when
// none can be made.
int createUniqueBeside(const std::filesystem::path& target, mode_t mode, std::string& name) {
    std::random_device random;
    for (int attempt = 0; attempt < 16; ++attempt) {
        name = target.string() + "." + std::to_string(getpid()) + "-" + std::to_string(random()) +
               ".tmp";
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    return -1;
}

// Writes beside the target and renames over it, so a failed write leaves the
// old file whole. The old file keeps its mode; a symbolic link keeps pointing
// at it. Refuses (writing nothing) a target that is not a regular file or
// that is read-only.
bool replaceFile(const std::string& path, const std::string& bytes) {
    const std::filesystem::path target = saveTarget(path);
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists &&
        (!S_ISREG(old.st_mode) || (old.st_mode & 0222) == 0 || ::access(target.c_str(), W_OK) != 0))
        return false;
    std::string partial;
    // A new file gets the usual 0666 less the umask, as open applies it.
    const int fd = createUniqueBeside(target, exists ? old.st_mode & 07777 : 0666, partial);
    if (fd < 0) return false;
    bool written = appendWhole(fd, bytes);
    // The mode asked for at creation was cut by the umask; the old one is kept whole.
    if (exists) written = ::fchmod(fd, old.st_mode & 07777) == 0 && written;
    written = ::fsync(fd) == 0 && written;
    written = ::close(fd) == 0 && written;
    if (!written || ::rename(partial.c_str(), target.c_str()) != 0) {
        ::unlink(partial.c_str());
        return false;
    }
    return true;
}

}  // namespace

void saveBoardFile(Game& game) {
    const std::string& path = game.state().boardFilePath;
    if (!replaceFile(path, formatBoardFile(game.state())))
        game.toolkit().messageBox(path + ": board file cannot be written! Not saved",
                                  MessageButtons::ok);
}

void readBoardFile(Game& game) {
    const std::string path = game.state().boardFilePath;
    const BoardFileRead read = loadBoardFile(path);
    if (read.fault != BoardFileFault::none) {
        game.toolkit().messageBox(refusalMessage(path, read), MessageButtons::ok);
        return;
    }
    applyBoardFile(game, read.file);
}

void applyBoardFile(Game& game, const BoardFile& file) {
    GameState& state = game.state();
    // With userColour at 1 the new game leaves the board empty.
    state.userColour = black;
    game.newGame();
    state.clickAllowed = flagTrue;
    for (const MoveRecordEntry& move : file.moves) {
        ++state.stepNum;
        state.moveRecord[static_cast<std::size_t>(state.stepNum)] = move;
    }
    state.userColour = file.userColour;
    if (state.userColour == white) state.clickAllowed = flagFalse;
    state.movesAhead = state.stepNum;
    state.stepNum = 0;
    game.toolkit().setEnabled(Control::cmdForw, true);
}

}  // namespace quintline
