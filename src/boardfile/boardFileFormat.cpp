#include "boardfile/boardFileFormat.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "boardfile/fieldReader.h"
#include "boardfile/numberForm.h"

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
    CheckedReader(std::istream& in, BoardFileRead& result) : fields_(in), result_(result) {}

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
                fail('"' + field.text + "\" is not a whole number");
                break;
            case FieldFault::outOfRange:
                fail(field.text + " does not fit 16 bits");
                break;
        }
        return 0;
    }

    std::string text() {
        if (failed()) return {};
        TextField field = fields_.readText();
        if (field.fault == FieldFault::endOfFile) fail("the file ends early");
        return field.value;
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
    return parseBoardFile(in);
}

bool replaceFile(const std::string& path, const std::string& bytes) {
    const std::string partial = path + ".part";
    {
        std::ofstream out(partial, std::ios::binary | std::ios::trunc);
        if (!out.is_open()) return false;
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.close();
        if (!out) {
            std::remove(partial.c_str());
            return false;
        }
    }
    std::error_code error;
    std::filesystem::rename(partial, path, error);
    if (error) {
        std::remove(partial.c_str());
        return false;
    }
    return true;
}

std::string refusalMessage(const std::string& path, const BoardFileRead& read) {
    switch (read.fault) {
        case BoardFileFault::none:
            break;
        case BoardFileFault::unsuitable:
            return "the gird size or the piece number is not suitable! Not loaded";
        case BoardFileFault::cannotOpen:
            return path + ": board file cannot be opened! Not loaded";
        case BoardFileFault::broken:
            return path + ": board file broken at line " + std::to_string(read.line) + ": " +
                   read.detail + "! Not loaded";
    }
    return {};
}

}  // namespace quintline
