#include "boardfile/boardFileFormat.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <sstream>

#include "boardfile/fieldReader.h"
#include "boardfile/numberForm.h"
#include "harness/wholeAppend.h"

namespace quintline {
namespace {

constexpr std::string_view userTurnLabel = "UserTurn";

void putLine(std::string& out, std::string_view text) {
    out += text;
    out += lineEnd;
}

// Collects the first fault met while reading; later reads are skipped.
class CheckedReader {
  public:
    CheckedReader(std::istream& in, BoardFileRead& result)
        : fields_(in, maxBoardFileBytes), result_(result) {}

    bool failed() const { return result_.fault != BoardFileFault::none; }

    std::int16_t number() {
        if (failed()) return 0;
        NumberField field = fields_.readNumber();
        switch (field.fault) {
            case FieldFault::none:
                return field.value;
            case FieldFault::endOfFile:
                fail("the file ends early");
                break;
            case FieldFault::notANumber:
                fail(fieldExcerpt(field.text) + " is not a whole number");
                break;
            case FieldFault::outOfRange:
                fail((field.text.size() > 40 ? fieldExcerpt(field.text) : field.text) +
                     " does not fit 16 bits");
                break;
            default:
                failOn(field.fault, field.text);
        }
        return 0;
    }

    std::string text() {
        if (failed()) return {};
        TextField field = fields_.readText();
        if (field.fault != FieldFault::none) failOn(field.fault, field.value);
        return field.value;
    }

    void failOn(FieldFault fault, std::string_view field) {
        if (fault == FieldFault::tooLong)
            fail("a field longer than " + std::to_string(maxFieldLength) +
                 " bytes: " + fieldExcerpt(field));
        else if (fault == FieldFault::overLimit)
            result_.fault = BoardFileFault::tooLarge;
        else if (fault == FieldFault::unclosedQuote)
            fail("the quote opened here is not closed");
        else
            fail("the file ends early");
    }

    void fail(std::string detail) {
        if (failed()) return;
        result_.fault = BoardFileFault::broken;
        result_.line = fields_.fieldLine();
        result_.detail = std::move(detail);
    }

  private:
    FieldReader fields_;
    BoardFileRead& result_;
};

std::string pointText(int x, int y) {
    return "point (" + std::to_string(x) + ", " + std::to_string(y) + ")";
}

}  // namespace

BoardFile savedBoard(const GameState& state) {
    BoardFile file;
    file.moves.assign(state.moveRecord.begin() + 1, state.moveRecord.begin() + 1 + state.stepNum);
    file.userColour = state.userColour;
    return file;
}

std::string formatBoardFile(const GameState& state) {
    return formatBoardFile(savedBoard(state));
}

std::string formatBoardFile(const BoardFile& file) {
    std::string out;
    putLine(out, "Grid Size");
    putLine(out, numberForm(fileGridSize));
    putLine(out, "Piece number");
    putLine(out, numberForm(filePieceNumber));
    putLine(out, "Total Move");
    putLine(out, numberForm(static_cast<std::int16_t>(file.moves.size())));
    for (const MoveRecordEntry& move : file.moves)
        putLine(out, numberForm(move.colour) + ' ' + numberForm(move.x) + ' ' + numberForm(move.y));
    putLine(out, userTurnLabel);
    putLine(out, numberForm(file.userColour));
    putLine(out, "end");
    return out;
}

BoardFileRead parseBoardFile(std::istream& in) {
    BoardFileRead result;
    CheckedReader reader(in, result);

    reader.text();
    const std::int16_t gridSize = reader.number();
    reader.text();
    const std::int16_t pieceNumber = reader.number();
    reader.text();
    const std::int16_t total = reader.number();
    if (reader.failed()) return result;
    if (gridSize != fileGridSize || pieceNumber != filePieceNumber) {
        result.fault = BoardFileFault::unsuitable;
        return result;
    }
    if (total < 0 || total > maxStones) {
        reader.fail("total of moves " + std::to_string(total) + " is outside 0 to " +
                    std::to_string(maxStones));
        return result;
    }

    std::array<std::array<bool, boardSize + 1>, boardSize + 1> taken{};
    result.file.moves.reserve(static_cast<std::size_t>(total));
    for (int i = 1; i <= total; ++i) {
        MoveRecordEntry move;
        move.colour = reader.number();
        if (!reader.failed() && move.colour != black && move.colour != white)
            reader.fail("colour " + std::to_string(move.colour) + " is neither 1 nor -1");
        move.x = reader.number();
        move.y = reader.number();
        if (reader.failed()) return result;
        if (!onBoard(move.x, move.y)) {
            reader.fail(pointText(move.x, move.y) + " is off the board");
            return result;
        }
        bool& point = taken[static_cast<std::size_t>(move.x)][static_cast<std::size_t>(move.y)];
        if (point) {
            reader.fail(pointText(move.x, move.y) + " is taken twice");
            return result;
        }
        point = true;
        result.file.moves.push_back(move);
    }

    // A file without the label, or with any other text there, gives the user black.
    if (reader.text() == userTurnLabel) {
        const std::int16_t colour = reader.number();
        if (reader.failed()) return result;
        if (colour != black && colour != white && colour != empty) {
            reader.fail("UserTurn value " + std::to_string(colour) + " is not -1, 0 or 1");
            return result;
        }
        result.file.userColour = colour;
    } else {
        result.file.userColour = black;
    }
    return result;
}

BoardFileRead loadBoardFile(const std::string& path) {
    std::error_code ignored;
    std::ifstream in;
    if (!std::filesystem::is_directory(path, ignored)) in.open(path, std::ios::binary);
    if (!in.is_open()) {
        BoardFileRead result;
        result.fault = BoardFileFault::cannotOpen;
        return result;
    }
    std::string bytes(maxBoardFileBytes + 1, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    if (bytes.size() > maxBoardFileBytes) {
        BoardFileRead result;
        result.fault = BoardFileFault::tooLarge;
        return result;
    }
    std::istringstream text(std::move(bytes));
    return parseBoardFile(text);
}

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

// What follows a target's name in the name of its partial copy.
constexpr const char* partialSuffix = R"(\.[0-9]+-[0-9]+\.tmp)";

// A name beside `target` that no file holds yet, created with `mode`; -1 when
// none can be made.
int createUniqueBeside(const std::filesystem::path& target, mode_t mode, std::string& name) {
    std::random_device random;
    for (int attempt = 0; attempt < 16; ++attempt) {
        name = target.string() + "." + std::to_string(getpid()) + "-" + std::to_string(random()) +
               ".tmp";  // as partialSuffix matches
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    return -1;
}

}  // namespace

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

void removeLeftoverPartials(const std::filesystem::path& folder, const std::string& targets) {
    const std::regex partial(targets + partialSuffix);
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
        if (std::regex_match(entry.path().filename().string(), partial))
            std::filesystem::remove(entry.path(), error);
}

std::string refusalMessage(const std::string& path, const BoardFileRead& read) {
    switch (read.fault) {
        case BoardFileFault::none:
            break;
        case BoardFileFault::unsuitable:
            return "the gird size or the piece number is not suitable! Not loaded";
        case BoardFileFault::cannotOpen:
            return path + ": board file cannot be opened! Not loaded";
        case BoardFileFault::tooLarge:
            return path + ": board file is larger than " +
                   std::to_string(maxBoardFileBytes / 1024) + " KiB! Not loaded";
        case BoardFileFault::broken:
            return path + ": board file broken at line " + std::to_string(read.line) + ": " +
                   read.detail + "! Not loaded";
    }
    return {};
}

}  // namespace quintline
