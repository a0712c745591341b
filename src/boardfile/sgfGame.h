#pragma once
// One game as an SGF game tree (FF[4], GM[4] gomoku, SZ[15]), for collections
// that the tools of the gomoku community read. Point (x, y) is written as the
// letters of x and y counted from "a": the centre (8, 8) is "hh".

#include <string>
#include <vector>

#include "boardfile/boardFileFormat.h"
#include "position/types.h"

namespace quintline {

struct SgfGameInfo {
    std::string event;             // EV
    std::string round;             // RO
    std::string black;             // PB
    std::string white;             // PW
    GameCode outcome = gameDrawn;  // RE: "B+", "W+" or "0"
    std::string date;              // DT, YYYY-MM-DD
    std::string application;       // AP, "name:version"
};

// "(;FF[4]...;B[hh];W[ig]...)" and a line end; the moves are those of the record.
std::string sgfGameTree(const SgfGameInfo& info, const std::vector<MoveRecordEntry>& moves);

}  // namespace quintline
